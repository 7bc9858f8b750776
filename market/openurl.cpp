#include "market/openurl.h"

#include <curl/curl.h>

#include <QUrl>
#include <memory>

#include "market/cregister.h"
#include "market/hosts.h"

namespace ostravel {

namespace {

std::size_t appendBody(char* data, std::size_t size, std::size_t count, void* body) {
    static_cast<QByteArray*>(body)->append(data, static_cast<qsizetype>(size * count));
    return size * count;
}

struct CurlEasyDeleter {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
struct CurlListDeleter {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};

}  // namespace

QByteArray OpenURL(const QString& url) {
    static const bool initialised = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    if (!initialised)
        return {};
    const std::unique_ptr<CURL, CurlEasyDeleter> curl(curl_easy_init());
    if (!curl)
        return {};

    QByteArray body;
    const QByteArray address = url.toLatin1();
    const std::unique_ptr<curl_slist, CurlListDeleter> headers(
        curl_slist_append(curl_slist_append(nullptr, "Cache-Control: no-cache"), "Pragma: no-cache"));
    CURL* handle = curl.get();
    curl_easy_setopt(handle, CURLOPT_URL, address.constData());
    curl_easy_setopt(handle, CURLOPT_USERAGENT, "Ostravel");
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers.get());
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(handle, CURLOPT_TIMEOUT, kOpenUrlTimeoutSeconds);
    curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT, 30L);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, appendBody);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &body);
    const QString host = QUrl(url).host();
    if (const int port = portForHost(host); port != 80)
        curl_easy_setopt(handle, CURLOPT_PORT, static_cast<long>(port));
    const ProxySettings proxy = readProxySettings();
    const QByteArray proxyAddress = proxy.ip.trimmed().toLatin1();
    // Without our own proxy the system's proxy settings (http_proxy) are left to libcurl.
    if (proxy.active()) {
        curl_easy_setopt(handle, CURLOPT_PROXY, proxyAddress.constData());
        curl_easy_setopt(handle, CURLOPT_PROXYPORT, static_cast<long>(proxy.portNumber()));
        curl_easy_setopt(handle, CURLOPT_PROXYTYPE, static_cast<long>(CURLPROXY_HTTP));
    }
    // A failure of any kind gives the empty text, as a fetch without a connection does.
    if (curl_easy_perform(handle) != CURLE_OK)
        return {};
    return body;
}

}  // namespace ostravel

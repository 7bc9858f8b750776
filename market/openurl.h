// OpenURL: the second way out to the web, on libcurl, for quotes and the exchange's day files.
#pragma once

#include <QByteArray>
#include <QString>

namespace ostravel {

// The body of the answer, never from a cache; empty when anything fails (no connection, an
// unknown host, a time-out). The port comes from hosts.ini for the URL's host; the proxy of
// frmProxy is used when it is on.
QByteArray OpenURL(const QString& url);

// The whole fetch is given up after this long.
constexpr long kOpenUrlTimeoutSeconds = 60;

}  // namespace ostravel

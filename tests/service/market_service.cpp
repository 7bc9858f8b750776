#include "tests/service/market_service.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QDate>
#include <QDateTime>
#include <QFile>
#include <QLocale>
#include <QUrl>
#include <QUrlQuery>
#include <algorithm>
#include <stdexcept>

namespace ostravel::test {

namespace {

struct Bar {
    QDate date;
    QList<QByteArray> fields;  // Date, Open, High, Low, Close, Volume, Adj Close as written
};

const QList<QByteArray> kOldLayout = {"Date", "Open", "High", "Low", "Close", "Volume", "Adj Close"};

// A history file of any of the Yahoo layouts, its rows in the old layout's order, oldest first;
// rows of "null" are left out, as the old service had none.
std::vector<Bar> readBars(const QString& path) {
    QFile file(path);
    std::vector<Bar> bars;
    if (!file.open(QIODevice::ReadOnly))
        return bars;
    const QList<QByteArray> lines = file.readAll().replace("\r", "").split('\n');
    if (lines.isEmpty())
        return bars;
    const QList<QByteArray> names = lines.front().split(',');
    QList<qsizetype> at;
    for (const QByteArray& name : kOldLayout) at << names.indexOf(name);
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const QList<QByteArray> fields = lines[i].split(',');
        if (fields.size() < names.size() || lines[i].contains("null"))
            continue;
        Bar bar{QDate::fromString(QString::fromLatin1(fields[0]), Qt::ISODate), {}};
        for (const qsizetype index : at) bar.fields << (index >= 0 ? fields[index] : fields[at[4]]);
        if (bar.date.isValid())
            bars.push_back(std::move(bar));
    }
    return bars;
}

// The closes as a line in an 800 by 400 picture, the lowest at the foot.
QByteArray closesLine(const std::vector<Bar>& bars) {
    const auto close = [](const Bar& bar) { return bar.fields[4].toDouble(); };
    const auto [low, high] =
        std::minmax_element(bars.begin(), bars.end(), [&](const Bar& a, const Bar& b) { return close(a) < close(b); });
    const double span = std::max(close(*high) - close(*low), 0.01);
    const double step = 800.0 / double(std::max<std::size_t>(bars.size() - 1, 1));
    QByteArray points;
    for (std::size_t i = 0; i < bars.size(); ++i)
        points += QByteArray::number(step * double(i), 'f', 1) + ',' +
                  QByteArray::number(390 - 380 * (close(bars[i]) - close(*low)) / span, 'f', 1) + ' ';
    return "<svg width=\"800\" height=\"400\"><polyline fill=\"none\" stroke=\"navy\" points=\"" + points +
           "\"/></svg>";
}

QString stockOf(const QString& code) {
    QString symbol = code;
    for (const char* suffix : {".NS", ".BO"})
        if (symbol.endsWith(QLatin1String(suffix)))
            symbol.chop(3);
    return symbol;
}

QByteArray notFound() {
    return httpAnswer(404, "text/html",
                      "<html><head><title>Not Found</title></head><body>Sorry, the page you requested was not "
                      "found.</body></html>\n");
}

QByteArray readRequest(int connection) {
    QByteArray request;
    char buffer[4096];
    while (!request.contains("\r\n\r\n") && request.size() < 65536) {
        pollfd wanted{connection, POLLIN, 0};
        if (::poll(&wanted, 1, 5000) != 1)
            break;
        const ssize_t got = ::recv(connection, buffer, sizeof buffer, 0);
        if (got <= 0)
            break;
        request.append(buffer, got);
    }
    return request;
}

void sendAll(int connection, const QByteArray& bytes) {
    qsizetype sent = 0;
    while (sent < bytes.size()) {
        const ssize_t n =
            ::send(connection, bytes.constData() + sent, static_cast<std::size_t>(bytes.size() - sent), MSG_NOSIGNAL);
        if (n <= 0)
            return;
        sent += n;
    }
}

}  // namespace

QString ServiceRequest::value(const QString& key) const {
    return QUrlQuery(query).queryItemValue(key, QUrl::FullyDecoded);
}

QByteArray httpAnswer(int status, const QByteArray& contentType, const QByteArray& body) {
    const QByteArray reason = status == 200 ? "OK" : status == 404 ? "Not Found" : "Error";
    const QByteArray date =
        QLocale::c().toString(QDateTime::currentDateTimeUtc(), QStringLiteral("ddd, dd MMM yyyy hh:mm:ss")).toLatin1();
    return "HTTP/1.1 " + QByteArray::number(status) + ' ' + reason + "\r\nDate: " + date +
           " GMT\r\nP3P: policyref=\"http://p3p.example/w3c/p3p.xml\", CP=\"CAO DSP COR CUR ADM DEV TAI PSA PSD\"\r\n"
           "Cache-Control: private\r\nConnection: close\r\nContent-Type: " +
           contentType + "\r\n\r\n" + body;
}

MarketService::MarketService(QString dataFolder, int port) : m_data(std::move(dataFolder)) {
    m_listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int yes = 1;
    ::setsockopt(m_listener, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    if (::bind(m_listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(m_listener, 16) != 0 ||
        ::getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &length) != 0 || ::pipe(m_stop) != 0) {
        ::close(m_listener);
        throw std::runtime_error("the market service can't listen on loopback");
    }
    m_port = ntohs(address.sin_port);
    route(QStringLiteral("/table.csv"), [this](const ServiceRequest& r) { return historyPage(r); });
    route(QStringLiteral("/d/quotes.csv"), [this](const ServiceRequest& r) { return quotes(r); });
    route(QStringLiteral("/content/historical/EQUITIES/"), [this](const ServiceRequest& r) { return dayFile(r); });
    route(QStringLiteral("/c/"), [this](const ServiceRequest& r) { return chartPage(r); });
    m_thread = std::thread([this] { serve(); });
}

MarketService::~MarketService() {
    const char stop = 's';
    [[maybe_unused]] const ssize_t written = ::write(m_stop[1], &stop, 1);
    m_thread.join();
    for (const int held : m_held) ::close(held);
    ::close(m_listener);
    ::close(m_stop[0]);
    ::close(m_stop[1]);
}

QString MarketService::hostPort() const {
    return QStringLiteral("127.0.0.1:%1").arg(m_port);
}

void MarketService::route(const QString& pathPrefix, Handler handler) {
    const std::lock_guard lock(m_mutex);
    m_routes.insert(m_routes.begin(), {pathPrefix, std::move(handler)});
}

void MarketService::setQuoteDay(const QDate& day) {
    const std::lock_guard lock(m_mutex);
    m_quoteDay = day;
}

std::vector<ServiceRequest> MarketService::requests() const {
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

void MarketService::clearRequests() {
    const std::lock_guard lock(m_mutex);
    m_requests.clear();
}

ServiceReply MarketService::chartPage(const ServiceRequest& request) const {
    const QStringList parts = request.path.split(QLatin1Char('/'));  // "", "c", "1y", "a", code
    if (parts.size() != 5 || (parts[2] != QLatin1String("1y") && parts[2] != QLatin1String("5y")))
        return {notFound()};
    const QString symbol = QUrl::fromPercentEncoding(parts[4].toLatin1()).toUpper();
    std::vector<Bar> bars = readBars(m_data + QStringLiteral("/history/") + symbol + QStringLiteral(".csv"));
    if (parts[2] == QLatin1String("1y") && bars.size() > 250)
        bars.erase(bars.begin(), bars.end() - 250);
    if (bars.empty())
        return {notFound()};
    const QByteArray title = symbol.toLatin1() + ' ' + parts[2].toLatin1() + " daily closes";
    return {httpAnswer(200, "text/html",
                       "<html><head><title>" + title + "</title></head><body><h2>" + title + "</h2><p>" +
                           bars.front().date.toString(Qt::ISODate).toLatin1() + " to " +
                           bars.back().date.toString(Qt::ISODate).toLatin1() + "</p>" + closesLine(bars) +
                           "</body></html>\n")};
}

void MarketService::serve() {
    for (;;) {
        pollfd wanted[2] = {{m_listener, POLLIN, 0}, {m_stop[0], POLLIN, 0}};
        if (::poll(wanted, 2, -1) < 0 || (wanted[1].revents & POLLIN))
            return;
        const int connection = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection >= 0)
            answer(connection);
    }
}

void MarketService::answer(int connection) {
    ServiceRequest request;
    request.whole = readRequest(connection);
    request.line = QString::fromLatin1(request.whole.left(request.whole.indexOf("\r\n")));
    const QStringList words = request.line.split(QLatin1Char(' '));
    QString target = words.value(1);
    if (target.startsWith(QLatin1String("http://")))  // through a proxy: the absolute URI
        target = target.mid(target.indexOf(QLatin1Char('/'), 7));
    request.path = target.section(QLatin1Char('?'), 0, 0);
    request.query = target.section(QLatin1Char('?'), 1);

    Handler handler;
    {
        const std::lock_guard lock(m_mutex);
        m_requests.push_back(request);
        qsizetype best = -1;
        for (const auto& [prefix, candidate] : m_routes)
            if (request.path.startsWith(prefix) && prefix.size() > best) {
                best = prefix.size();
                handler = candidate;
            }
    }
    const ServiceReply reply = handler ? handler(request) : ServiceReply{notFound()};
    switch (reply.kind) {
        case ServiceReply::Kind::Silent:
            m_held.push_back(connection);
            return;
        case ServiceReply::Kind::CloseAtOnce:
            break;
        case ServiceReply::Kind::Answer:
            sendAll(connection, reply.bytes);
            break;
    }
    ::close(connection);
}

ServiceReply MarketService::historyPage(const ServiceRequest& request) const {
    const std::vector<Bar> bars =
        readBars(m_data + QStringLiteral("/history/") + stockOf(request.value("s")) + QStringLiteral(".csv"));
    if (bars.empty())
        return {notFound()};
    const auto number = [&](const char* key) { return request.value(QString::fromLatin1(key)).toInt(); };
    const QDate from(number("c"), number("a") + 1, number("b"));
    const QDate to(number("f"), number("d") + 1, number("e"));
    QByteArray body = kOldLayout.join(',') + '\n';
    int skip = number("y");
    int rows = 0;
    for (auto bar = bars.rbegin(); bar != bars.rend() && rows < 200; ++bar) {
        if (bar->date < from || bar->date > to || skip-- > 0)
            continue;
        body += bar->fields.join(',') + '\n';
        ++rows;
    }
    return {httpAnswer(200, "text/csv", body)};
}

ServiceReply MarketService::quotes(const ServiceRequest& request) const {
    QDate quoteDay;
    {
        const std::lock_guard lock(m_mutex);
        quoteDay = m_quoteDay;
    }
    QByteArray body;
    for (const QString& code : request.value(QStringLiteral("s")).split(QLatin1Char('+'), Qt::SkipEmptyParts)) {
        const std::vector<Bar> bars =
            readBars(m_data + QStringLiteral("/history/") + stockOf(code) + QStringLiteral(".csv"));
        const QByteArray quoted = '"' + code.toLatin1() + '"';
        if (bars.size() < 2) {
            body += quoted + ",0.00,\"N/A - N/A\",N/A,N/A,N/A,N/A,\"N/A\",\"N/A\",N/A,N/A," + quoted + "\r\n";
            continue;
        }
        const auto close = [&](std::size_t back) { return bars[bars.size() - 1 - back].fields[4].toDouble(); };
        const auto average = [&](std::size_t days, int field) {
            double sum = 0;
            const std::size_t n = std::min(days, bars.size());
            for (std::size_t i = 0; i < n; ++i) sum += bars[bars.size() - 1 - i].fields[field].toDouble();
            return sum / static_cast<double>(n);
        };
        const Bar& last = bars.back();
        const double change = close(0) - close(1);
        const QByteArray signedChange = (change >= 0 ? "+" : "") + QByteArray::number(change, 'f', 2);
        body += quoted + ',' + QByteArray::number(close(0), 'f', 2) + ",\"" + signedChange + " - " +
                (change >= 0 ? "+" : "") + QByteArray::number(100 * change / close(1), 'f', 2) + "%\"," + signedChange +
                ',' + QByteArray::number(close(1), 'f', 2) + ',' + last.fields[5] + ',' +
                QByteArray::number(average(63, 5), 'f', 0) + ",\"" +
                (quoteDay.isValid() ? quoteDay : last.date).toString("M/d/yyyy").toLatin1() + "\",\"3:30pm\"," +
                QByteArray::number(average(50, 4), 'f', 2) + ',' + QByteArray::number(average(200, 4), 'f', 2) + ",\"" +
                stockOf(code).toLatin1() + "\"\r\n";
    }
    return {httpAnswer(200, "application/octet-stream", body)};
}

ServiceReply MarketService::dayFile(const ServiceRequest& request) const {
    QFile file(m_data + QStringLiteral("/bhav/") + request.path.section(QLatin1Char('/'), -1));
    if (!file.open(QIODevice::ReadOnly))
        return {notFound()};
    return {httpAnswer(200, "text/csv", file.readAll())};
}

}  // namespace ostravel::test

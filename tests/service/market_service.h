// The market-data services on loopback, for tests and for trying the program by hand: the
// history service's CSV pages, the quote service's lines, the exchange's day files and the chart
// site's pages, fed from
// a data folder (tests/data), on an ephemeral port. Every request is recorded as it came.
#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace ostravel::test {

struct ServiceRequest {
    QString line;      // "GET /table.csv?s=... HTTP/1.0"
    QByteArray whole;  // request line and headers as sent
    QString path;      // the part of the target before "?"
    QString query;     // the part behind it
    QString value(const QString& key) const;
};

struct ServiceReply {
    enum class Kind { Answer, Silent, CloseAtOnce };
    QByteArray bytes;  // the whole answer: status line, headers, body
    Kind kind = Kind::Answer;
};

// An answer with its status line and the headers the history service sends, "Date: ... GMT"
// and "P3P: ..." among them.
QByteArray httpAnswer(int status, const QByteArray& contentType, const QByteArray& body);

class MarketService {
public:
    using Handler = std::function<ServiceReply(const ServiceRequest&)>;

    // Serves the data folder's history/ and bhav/ on 127.0.0.1 at `port` (0: any free port).
    explicit MarketService(QString dataFolder, int port = 0);
    ~MarketService();
    MarketService(const MarketService&) = delete;
    MarketService& operator=(const MarketService&) = delete;

    int port() const { return m_port; }
    // "127.0.0.1:<port>", as hosts.ini takes it.
    QString hostPort() const;

    // A route of its own: the longest matching path prefix wins; later routes go first on a tie.
    void route(const QString& pathPrefix, Handler handler);

    // The last trade date the quotes give: by default the day of the stock's last bar, as a
    // service answers after the close; a day set here is what it answers during trading.
    void setQuoteDay(const QDate& day);

    std::vector<ServiceRequest> requests() const;
    void clearRequests();

    // The built-in routes, for a route that wants to answer as the service does.
    ServiceReply historyPage(const ServiceRequest& request) const;
    ServiceReply quotes(const ServiceRequest& request) const;
    ServiceReply dayFile(const ServiceRequest& request) const;
    // The chart site's page of a stock, "/c/1y/a/<code>" or "/c/5y/a/<code>": its closes of the
    // last year or of every day as a line, so that the navigator's web view has a page to show.
    ServiceReply chartPage(const ServiceRequest& request) const;

private:
    void serve();
    void answer(int connection);

    QString m_data;
    int m_listener = -1;
    int m_port = 0;
    int m_stop[2] = {-1, -1};
    std::vector<std::pair<QString, Handler>> m_routes;
    QDate m_quoteDay;
    std::vector<int> m_held;  // connections that get no answer, closed at the end
    mutable std::mutex m_mutex;
    std::vector<ServiceRequest> m_requests;
    std::thread m_thread;
};

}  // namespace ostravel::test

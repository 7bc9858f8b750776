// GetFromInet and OpenURL against the loopback service: the request as it goes out, the
// captions in their order, and every way a fetch can end, within its bounds.
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QSettings>

#include "market/cregister.h"
#include "market/getfrominet.h"
#include "market/openurl.h"
#include "market/winsock.h"
#include "tests/market/market_fixture.h"

namespace ostravel::test {
namespace {

using Kind = ServiceReply::Kind;

class FetchTest : public MarketTest {
protected:
    QByteArray fetch(QString url) { return GetFromInet(m_program, url); }
    void answerWith(const QByteArray& bytes, Kind kind = Kind::Answer) {
        m_service.route(QStringLiteral("/x"), [=](const ServiceRequest&) { return ServiceReply{bytes, kind}; });
    }
};

TEST_F(FetchTest, SendsTheRequestLinesAndCutsTheSchemeInPlace) {
    struct Case {
        QString url;
        QString left;
        QString line;
    };
    const QString host = QStringLiteral("127.0.0.1");
    const Case cases[] = {
        {"HTTP://127.0.0.1/table.csv?s=A.NS", "127.0.0.1/table.csv?s=A.NS", "GET /table.csv?s=A.NS HTTP/1.0"},
        {"http://127.0.0.1", "127.0.0.1", "GET / HTTP/1.0"},
        {"127.0.0.1/d/quotes.csv", "127.0.0.1/d/quotes.csv", "GET /d/quotes.csv HTTP/1.0"},
    };
    for (const Case& c : cases) {
        m_service.clearRequests();
        QString url = c.url;
        GetFromInet(m_program, url);
        EXPECT_EQ(url, c.left);
        ASSERT_EQ(m_service.requests().size(), 1u) << c.url.toStdString();
        EXPECT_EQ(QString::fromLatin1(m_service.requests()[0].whole),
                  c.line + "\r\nAccept: */*\r\nUser-Agent: Ostravel\r\nHost: " + host + "\r\n\r\n");
    }
}

TEST_F(FetchTest, ReturnsTheAnswerRawAndPassesItsCaptionsInOrder) {
    setSecondsForQuote(1);
    const QByteArray answer = fetch(QStringLiteral(
        "http://127.0.0.1/table.csv?s=RELIANCE.NS&a=0&b=1&c=2023&d=0&e=16&f=2023&g=d&z=66&y=0&ignore=.csv"));
    EXPECT_TRUE(answer.startsWith("HTTP/1.1 200 OK\r\nDate: ")) << answer.left(80).toStdString();
    EXPECT_TRUE(answer.contains("\r\n\r\nDate,Open,High,Low,Close,Volume,Adj Close\n2023-01-16,"));
    EXPECT_EQ(m_captions.mid(0, 3), QStringList({kConnecting, kSendingRequest, kWaiting + "...1"}));
    EXPECT_EQ(m_captions.back(), kReady);
}

TEST_F(FetchTest, SecondsForQuoteZeroReadsAtOnceWithNoWaitShown) {
    EXPECT_FALSE(fetch(QStringLiteral("127.0.0.1/table.csv?s=RELIANCE.NS&c=1996&f=2023")).isEmpty());
    EXPECT_EQ(m_captions, QStringList({kConnecting, kSendingRequest, kReady}));
}

TEST_F(FetchTest, TheWaitAcrossTheFullHourEndsAfterSecondsForQuote) {
    setSecondsForQuote(4);
    int clock = 3598;
    m_program.module<Winsock>().secondsOfHour = [&] { return clock++ % 3600; };
    QElapsedTimer timer;
    timer.start();
    fetch(QStringLiteral("127.0.0.1/x"));
    EXPECT_LT(timer.elapsed(), 4000);
    EXPECT_TRUE(m_captions.contains(kWaiting + "...3"));
    EXPECT_TRUE(m_captions.contains(kWaiting + "...1"));
    EXPECT_EQ(m_captions.back(), kReady);
}

TEST_F(FetchTest, EachBadEndGivesItsCaptionWithinTheBounds) {
    m_program.module<Winsock>().idleLimitMs = 300;
    const int closedPort = [] {
        const int s = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in a{};
        a.sin_family = AF_INET;
        a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t n = sizeof a;
        ::bind(s, reinterpret_cast<sockaddr*>(&a), n);
        ::getsockname(s, reinterpret_cast<sockaddr*>(&a), &n);
        ::close(s);
        return ntohs(a.sin_port);
    }();
    struct Case {
        const char* name;
        QByteArray bytes;
        Kind kind;
        QString host;
        QString caption;
    };
    const Case cases[] = {
        {"empty answer", "", Kind::Answer, m_service.hostPort(), kReady},
        {"closes at once", "", Kind::CloseAtOnce, m_service.hostPort(), kReady},
        {"never answers", "", Kind::Silent, m_service.hostPort(), kReady},
        {"refused", "", Kind::Answer, QStringLiteral("127.0.0.1:%1").arg(closedPort), kCouldNotConnect},
        {"no host set", "", Kind::Answer, QString(), kUnknownHost},
    };
    for (const Case& c : cases) {
        answerWith(c.bytes, c.kind);
        writeHosts({QStringLiteral("history=") + c.host});
        QElapsedTimer timer;
        timer.start();
        const QString base = c.host.section(QLatin1Char(':'), 0, 0);
        EXPECT_TRUE(fetch(QStringLiteral("http://") + base + QStringLiteral("/x")).isEmpty()) << c.name;
        EXPECT_EQ(m_program.frame().caption, c.caption) << c.name;
        EXPECT_LT(timer.elapsed(), 2000) << c.name;
        EXPECT_EQ(m_program.module<Winsock>().FetchSocket, 0) << c.name;
    }
}

TEST_F(FetchTest, ThroughTheProxyTheRequestNamesTheWholeUrl) {
    writeHosts({QStringLiteral("history=quotes.example:8081")});
    CRegister reg;
    reg.REGSaveSetting(kSettingsKey, QStringLiteral("Proxy IP"), QStringLiteral("127.0.0.1"));
    reg.REGSaveSetting(kSettingsKey, QStringLiteral("Proxy Port"), QString::number(m_service.port()));
    reg.REGSaveSetting(kSettingsKey, QStringLiteral("Proxy Use"), QStringLiteral("1"));
    fetch(QStringLiteral("http://quotes.example/table.csv?s=X"));
    OpenURL(QStringLiteral("http://quotes.example/d/quotes.csv?s=RELIANCE.NS"));
    const auto requests = m_service.requests();
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_EQ(requests[0].line, QStringLiteral("GET http://quotes.example:8081/table.csv?s=X HTTP/1.0"));
    EXPECT_TRUE(requests[0].whole.contains("\r\nHost: quotes.example\r\n"));
    EXPECT_TRUE(
        requests[1].line.startsWith(QStringLiteral("GET http://quotes.example:8081/d/quotes.csv?s=RELIANCE.NS")));
}

TEST_F(FetchTest, OpenUrlGivesTheBodyAloneAndNothingOnFailure) {
    const QByteArray body =
        OpenURL(QStringLiteral("http://127.0.0.1/d/quotes.csv?s=RELIANCE.NS&f=sl1cc1pva2d1t1m3m4n&e=.csv"));
    EXPECT_TRUE(body.startsWith("\"RELIANCE.NS\",")) << body.toStdString();
    EXPECT_TRUE(m_service.requests().back().whole.contains("\r\nUser-Agent: Ostravel\r\n"));
    EXPECT_TRUE(m_service.requests().back().whole.contains("no-cache"));
    writeHosts({QStringLiteral("quote=")});
    EXPECT_TRUE(OpenURL(QStringLiteral("http:///d/quotes.csv")).isEmpty());
}

}  // namespace
}  // namespace ostravel::test

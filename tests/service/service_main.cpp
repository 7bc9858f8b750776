// ostravel-testservice: the loopback market service by hand. Prints the host:port to put in a
// program folder's hosts.ini, logs each request line, and serves until interrupted.
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>

#include "tests/service/market_service.h"

namespace {
volatile std::sig_atomic_t g_stop = 0;
}

int main(int argc, char** argv) {
    QString data = QStringLiteral(OSTRAVEL_TEST_DATA);
    int port = 0;
    QDate quoteDay;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (std::strcmp(argv[i], "--data") == 0)
            data = QString::fromLocal8Bit(argv[i + 1]);
        else if (std::strcmp(argv[i], "--port") == 0)
            port = std::stoi(argv[i + 1]);
        else if (std::strcmp(argv[i], "--quote-day") == 0)
            quoteDay = std::strcmp(argv[i + 1], "today") == 0
                           ? QDate::currentDate()
                           : QDate::fromString(QString::fromLatin1(argv[i + 1]), Qt::ISODate);
    }
    std::signal(SIGINT, [](int) { g_stop = 1; });
    std::signal(SIGTERM, [](int) { g_stop = 1; });
    ostravel::test::MarketService service(data, port);
    service.setQuoteDay(quoteDay);
    std::printf("%s\n", service.hostPort().toLatin1().constData());
    std::fflush(stdout);
    std::size_t logged = 0;
    while (!g_stop) {
        ::usleep(200000);
        const auto requests = service.requests();
        for (; logged < requests.size(); ++logged)
            std::fprintf(stderr, "%s\n", requests[logged].line.toLatin1().constData());
    }
    return 0;
}

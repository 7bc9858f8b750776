#include "market/getfrominet.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QDateTime>
#include <QElapsedTimer>
#include <QThread>
#include <cerrno>

#include "context/program.h"
#include "market/cregister.h"
#include "market/doevents.h"
#include "market/hosts.h"
#include "market/winsock.h"
#include "runtime/trap.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

const QString kPlace = QStringLiteral("(Module) MBorrowedCode::Function GetFromInet");
constexpr int kBufferSize = 8192;

int secondsOfHour(const Winsock& ws) {
    if (ws.secondsOfHour)
        return ws.secondsOfHour();
    const QTime time = QTime::currentTime();
    return time.minute() * 60 + time.second();
}

// connect, given up when the system has not answered within the idle limit.
bool connectBounded(int socket, const sockaddr_in& address, int limitMs) {
    const int flags = ::fcntl(socket, F_GETFL, 0);
    ::fcntl(socket, F_SETFL, flags | O_NONBLOCK);
    int result = ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    if (result != 0 && errno == EINPROGRESS) {
        pollfd wanted{socket, POLLOUT, 0};
        int error = 0;
        socklen_t length = sizeof error;
        result = ::poll(&wanted, 1, limitMs) == 1 && ::getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &length) == 0 &&
                         error == 0
                     ? 0
                     : -1;
    }
    ::fcntl(socket, F_SETFL, flags);
    return result == 0;
}

}  // namespace

QByteArray GetFromInet(Program& program, QString& url) {
    Winsock& ws = program.module<Winsock>();
    MainFrame& frame = program.frame();
    ErrorReporter& reporter = program.reporter();
    QByteArray answer;

    if (url.left(4).compare(QLatin1String("http"), Qt::CaseInsensitive) == 0)
        url = url.mid(url.indexOf(QLatin1Char('/'), 4) + 2);
    qsizetype slash = url.indexOf(QLatin1Char('/'));
    if (slash < 0)
        slash = url.size();
    QString path = url.mid(slash);
    if (path.isEmpty())
        path = QStringLiteral("/");
    // A port written behind the host stays part of the name, and the look-up fails on it; the
    // port comes from hosts.ini.
    const QString host = url.left(slash);
    int port = portForHost(host);

    QString description;
    StartWinsock(ws, description);

    ws.FetchSocket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (ws.FetchSocket == -1) {
        frame.caption = kCreateSocketError;
        DoEvents(program);
        return {};
    }
    const int socket = ws.FetchSocket;

    // Through a proxy the connection goes to the proxy, and the request names the whole URL.
    const ProxySettings proxy = readProxySettings();
    QString target = path;
    QString connectHost = host;
    if (proxy.active()) {
        target = QStringLiteral("http://") + host + (port == 80 ? QString() : QStringLiteral(":%1").arg(port)) + path;
        connectHost = proxy.ip.trimmed();
        port = proxy.portNumber();
    }

    const std::int64_t address = GetHostByNameAlias(connectHost);
    if (address == -1) {
        frame.caption = kUnknownHost;
        DoEvents(program);
        // Winsock stays started, as the program leaves it; the socket is closed, so that a run
        // of failed look-ups can't use up the process's descriptors.
        ::close(socket);
        ws.FetchSocket = 0;
        return {};
    }

    sockaddr_in server{};
    server.sin_family = AF_INET;
    server.sin_port = htons(static_cast<std::uint16_t>(port));
    server.sin_addr.s_addr = static_cast<in_addr_t>(address);
    frame.caption = kConnecting;
    DoEvents(program);
    if (!connectBounded(socket, server, ws.idleLimitMs)) {
        ::close(socket);
        ws.FetchSocket = 0;
        EndWinsock(ws);
        frame.caption = kCouldNotConnect;
        DoEvents(program);
        return {};
    }

    DoEvents(program);
    const QByteArray request =
        (QStringLiteral("GET ") + target + QStringLiteral(" HTTP/1.0\r\n") + QStringLiteral("Accept: */*\r\n") +
         QStringLiteral("User-Agent: Ostravel\r\n") + QStringLiteral("Host: ") + host + QStringLiteral("\r\n\r\n"))
            .toLatin1();
    frame.caption = kSendingRequest;
    DoEvents(program);
    SendData(ws, socket, request);

    double seconds = 0;
    trapped(reporter, kPlace,
            [&] { seconds = program.store().users->field(QStringLiteral("SecondsForQuote")).toDouble(); });
    // The wait is the program's only way of giving the server time: it lasts SecondsForQuote
    // whatever the server does.
    // Kept: the deadline counts seconds within the hour. The program's wait, begun near the full
    // hour, never reached a deadline past 3600 and waited on for good; here the clock is read on
    // across the hour, and the wait never outlasts SecondsForQuote.
    const int start = secondsOfHour(ws);
    const double deadline = start + seconds;
    const auto nowUnwrapped = [&] {
        const int now = secondsOfHour(ws);
        return now < start ? now + 3600 : now;
    };
    QElapsedTimer waited;
    waited.start();
    for (double now = nowUnwrapped();
         now < deadline && ws.FetchSocket > 0 && static_cast<double>(waited.elapsed()) < seconds * 1000;
         now = nowUnwrapped()) {
        frame.caption = kWaiting + QStringLiteral("...") + numberToText(deadline - now);
        DoEvents(program);
        QThread::msleep(static_cast<unsigned long>(ws.waitStepMs));
    }

    frame.caption = kReady;
    DoEvents(program);

    if (ws.FetchSocket > 0) {
        // Kept: the program read until the server closed, and went on reading after a socket
        // error. Here a socket error, or idleLimitMs without a byte, ends the read as a close does.
        char buffer[kBufferSize];
        for (;;) {
            DoEvents(program);
            pollfd wanted{socket, POLLIN, 0};
            if (::poll(&wanted, 1, ws.idleLimitMs) != 1)
                break;
            const ssize_t count = ::recv(socket, buffer, kBufferSize, 0);
            if (count <= 0)
                break;
            answer.append(buffer, count);
        }
    }

    ::close(socket);
    EndWinsock(ws);
    ws.FetchSocket = 0;
    DoEvents(program);
    return answer;
}

}  // namespace ostravel

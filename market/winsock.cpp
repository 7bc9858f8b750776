#include "market/winsock.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <sys/socket.h>
#include <unistd.h>

namespace ostravel {

bool StartWinsock(Winsock& ws, QString& description) {
    if (ws.WinsockStarted) {
        EndWinsock(ws);
        QString none;
        return StartWinsock(ws, none);
    }
    // POSIX sockets need no start; the flag keeps the program's pairing of start and end.
    ws.WinsockStarted = true;
    description = QStringLiteral("POSIX sockets");
    return ws.WinsockStarted;
}

void EndWinsock(Winsock& ws) {
    ws.WinsockStarted = false;
}

std::int64_t GetHostByNameAlias(const QString& host) {
    if (host.isEmpty())
        return -1;
    const QByteArray name = host.toLatin1();
    in_addr address{};
    if (::inet_pton(AF_INET, name.constData(), &address) == 1)
        return address.s_addr;
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (::getaddrinfo(name.constData(), nullptr, &hints, &found) != 0 || !found)
        return -1;
    const auto* ipv4 = reinterpret_cast<const sockaddr_in*>(found->ai_addr);
    const std::int64_t result = ipv4->sin_addr.s_addr;
    ::freeaddrinfo(found);
    return result;
}

long SendData(Winsock& ws, int socket, const QByteArray& data) {
    if (data.isEmpty())
        return 0;
    // No SIGPIPE from a server that has gone: the send fails like any other.
    const ssize_t sent = ::send(socket, data.constData(), static_cast<std::size_t>(data.size()), MSG_NOSIGNAL);
    if (sent < 0) {
        ::close(socket);
        EndWinsock(ws);
        return -1;
    }
    return static_cast<long>(sent);
}

}  // namespace ostravel

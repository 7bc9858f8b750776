// The socket layer under GetFromInet: the module's two variables, and the calls that the
// fetcher makes on POSIX sockets in the places of the program's Winsock calls.
#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <functional>

namespace ostravel {

class Program;

// The module-level state of the fetcher, one per run (Program::module).
struct Winsock {
    bool WinsockStarted = false;
    // The open socket; 0 when none, -1 when socket() failed.
    int FetchSocket = 0;

    // The clock of the wait: seconds within the hour, minutes × 60 + seconds. Tests set it.
    std::function<int()> secondsOfHour;
    // How long the wait may pause between two looks at the clock, and how long a read or a
    // connect may go without progress before it is given up.
    int waitStepMs = 100;
    int idleLimitMs = 30000;
};

// Asks for version 1.1; a second start first ends the first. Returns WinsockStarted.
bool StartWinsock(Winsock& ws, QString& description);
void EndWinsock(Winsock& ws);

// A dotted address needs no look-up; else the name service's first IPv4 address, in network
// order; -1 when there is none (an empty name included).
std::int64_t GetHostByNameAlias(const QString& host);

// One send of the whole text as 8-bit bytes; the count sent, or -1 after which the socket is
// closed and Winsock ended. A short send is not repeated.
long SendData(Winsock& ws, int socket, const QByteArray& data);

}  // namespace ostravel

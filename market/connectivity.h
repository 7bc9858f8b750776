// Whether the program may try the web: the system's network state, read as the program reads
// InternetGetConnectedState, and the start-up check with its messages.
#pragma once

#include <cstdint>

namespace ostravel {

class Prompt;

// The flags of InternetGetConnectedState that the program tests.
namespace netflag {
constexpr std::uint32_t Modem = 0x01;
constexpr std::uint32_t Lan = 0x02;
constexpr std::uint32_t ModemBusy = 0x08;
constexpr std::uint32_t RasInstalled = 0x10;
constexpr std::uint32_t Offline = 0x20;
constexpr std::uint32_t Configured = 0x40;
}  // namespace netflag

struct ConnectedState {
    bool connected = false;
    std::uint32_t flags = 0;
};

// The system's state: connected, on a LAN, when an interface other than loopback is up and
// running.
ConnectedState systemConnectedState();

// Online: the plain answer.
bool Online();

// -1 (go on) or 0; only the offline and modem-busy flags object, each with its message.
int CheckInternetConnection(Prompt& prompt, const ConnectedState& state);
int CheckInternetConnection(Prompt& prompt);

}  // namespace ostravel

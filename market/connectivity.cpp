#include "market/connectivity.h"

#include <ifaddrs.h>
#include <net/if.h>

#include "runtime/prompt.h"

namespace ostravel {

ConnectedState systemConnectedState() {
    ifaddrs* interfaces = nullptr;
    if (::getifaddrs(&interfaces) != 0)
        return {};
    ConnectedState state;
    for (const ifaddrs* i = interfaces; i; i = i->ifa_next) {
        const unsigned flags = i->ifa_flags;
        if ((flags & IFF_UP) && (flags & IFF_RUNNING) && !(flags & IFF_LOOPBACK)) {
            state = {true, netflag::Lan};
            break;
        }
    }
    ::freeifaddrs(interfaces);
    return state;
}

bool Online() {
    return systemConnectedState().connected;
}

int CheckInternetConnection(Prompt& prompt, const ConnectedState& state) {
    // Kept: a negative answer counts as a connection; only the flags can object.
    if (!state.connected)
        return -1;
    const std::uint32_t low = state.flags & 0xFF;
    if (low & (netflag::Configured | netflag::Lan | netflag::Modem))
        return -1;
    if (low & netflag::Offline) {
        prompt.inform(QStringLiteral("Internet connection is currently offline."));
        return 0;
    }
    if (low & netflag::ModemBusy) {
        prompt.inform(QStringLiteral("Modem is busy with a non-Internet connection."));
        return 0;
    }
    return (low & netflag::RasInstalled) ? -1 : 0;
}

int CheckInternetConnection(Prompt& prompt) {
    return CheckInternetConnection(prompt, systemConnectedState());
}

}  // namespace ostravel

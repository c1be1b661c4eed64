// What MAUSB Media Settings and its dialogs store, as tests compare it.
#pragma once

#include "mausb/PortTable.h"
#include "support/registry.h"

#include <utility>

using Ports = std::vector<std::pair<UINT, int>>;

inline Ports PortsOf(const PortTable& table)
{
    Ports ports;
    for (const PortEntry& entry : table)
    {
        ports.emplace_back(entry.PortNumber, entry.PacketType);
    }
    return ports;
}

inline Values AdvancedTCPValues(DWORD delay, DWORD sndBuf, DWORD rcvBuf, DWORD noDelay, DWORD defaultSndBuf,
                                DWORD defaultRcvBuf)
{
    return {{_T("AdvancedTCP_SocketSendDelay"), Dword(delay)},
            {_T("AdvancedTCP_SO_SNDBUF"), Dword(sndBuf)},
            {_T("AdvancedTCP_SO_RCVBUF"), Dword(rcvBuf)},
            {_T("AdvancedTCP_TCP_NODELAY"), Dword(noDelay)},
            {_T("AdvancedTCP_Default_SO_SNDBUF"), Dword(defaultSndBuf)},
            {_T("AdvancedTCP_Default_SO_RCVBUF"), Dword(defaultRcvBuf)}};
}

// A port table lists the TCP ports that the MAUSB tool uses as client or as server, with the packet type of
// each port. It is stored as a subkey of the tool's key. Each port is a subkey of that, named by the port
// number in decimal, with a REG_DWORD "PacketType".
#pragma once

#include "framework/RegistryAccess.h"

#include <vector>

// The stored numbers. A "Default" port carries all packets that no other port carries. A port without a
// stored type is a "Default" port.
enum : int
{
    PacketTypeDefault = -1,
    PacketTypeMgmtControl = 0,
    PacketTypeInterrupt = 1,
    PacketTypeBulk = 2
};

struct PortEntry
{
    UINT PortNumber;  // 0: an empty row, which is not stored
    int PacketType;   // may be any stored number, not only one of the above

    bool operator==(const PortEntry&) const = default;
};

// Port numbers may repeat, and empty rows may be anywhere.
using PortTable = std::vector<PortEntry>;

// The entry that is shown if no table is stored.
inline constexpr PortEntry DefaultPortEntry = {9001, PacketTypeDefault};

// Reads the stored table into `table`, which must be empty, and sorts it by packet type. Returns false if it
// cannot be read completely; `table` then holds the entries that were read.
bool LoadPortTable(PortTable& table, const WideString& name);

// Replaces the stored table. If a port number repeats, its last entry is stored. Returns false on failure:
// the old table is unchanged if its key could not be opened; otherwise it may be deleted and the new one
// incomplete.
bool SavePortTable(const PortTable& table, const WideString& name);

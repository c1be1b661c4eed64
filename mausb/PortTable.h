// A port table: the TCP ports that the MAUSB tool uses on one side of a connection, and what travels on each.
// It is stored as a subkey of the tool's key with one subkey per port, named by the number in decimal, which
// holds the REG_DWORD "PacketType".
#pragma once

#include "framework/RegistryAccess.h"

#include <vector>

// As stored. A port that has no stored type is a "Default" port: it carries what no other port is set to
// carry.
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
    int PacketType;   // whatever was stored, not only the four above
};

// A port may stand more than once; empty rows may stand anywhere.
using PortTable = std::vector<PortEntry>;

// What a tool without a table uses.
inline constexpr PortEntry DefaultPortEntry = {9001, PacketTypeDefault};

// Appends the stored table to one that is empty, ordered by packet type. False if it could not be read to its
// end; what was read until then stands in the table.
bool LoadPortTable(PortTable& table, const WideString& name);

// Replaces the stored table. False if that failed: the old table is then gone in part or whole and the new
// one stands in part, unless its key could not be opened at all. Of equal ports the last one stays.
bool SavePortTable(const PortTable& table, const WideString& name);

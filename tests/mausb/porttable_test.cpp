// How a port table is loaded and stored, also when one of the registry calls fails.
#include "mausb/PortTable.h"
#include "support/calls.h"
#include "support/registry.h"

#include <algorithm>

const Text Table = _T("TCPPortsClient");
const Text Type = _T("PacketType");

static void StorePorts(const Values& ports)
{
    for (const auto& [name, type] : ports)
    {
        Store(keys::ClientPorts + _T("\\") + name, Type, type);
    }
}

static PortTable Load(bool complete = true)
{
    PortTable table;
    EXPECT_EQ(LoadPortTable(table, Table), complete);
    EXPECT_EQ(calls::OpenKeys(), 0U);
    return table;
}

using PortTableTest = SettingsTest;

TEST_F(PortTableTest, LoadOfNothingCreatesNothing)
{
    EXPECT_EQ(Load(false), PortTable{});
    EXPECT_FALSE(KeyExists(keys::Kauri));
    // A key that has values but no subkeys is a complete table.
    Store(keys::ClientPorts, _T("9001"), Dword(2));
    EXPECT_EQ(Load(), PortTable{});
}

TEST_F(PortTableTest, LoadOrdersByTypeAndKeepsTheOrderOfTheRegistryForEqualTypes)
{
    StorePorts({{_T("9001"), Dword(2)},
                {_T("80"), Absent},
                {_T("5"), Dword(0x7FFFFFFF)},
                {_T("6"), Dword(1)},
                {_T("7"), Dword(0xFFFFFFFE)},
                {_T("8"), Dword(0xFFFFFFFF)}});
    EXPECT_EQ(Load(), (PortTable{{7, -2}, {8, -1}, {80, -1}, {6, 1}, {9001, 2}, {5, 0x7FFFFFFF}}));
    SetUp();
    PortTable expected;
    for (int port = 10; port < 42; ++port)
    {
        StorePorts({{Decimal(port), Dword(port % 2)}});
        expected.push_back({static_cast<UINT>(port), port % 2});
    }
    std::ranges::stable_sort(expected, {}, &PortEntry::PacketType);
    EXPECT_EQ(Load(), expected);
}

TEST_F(PortTableTest, LoadTakesTheLeadingNumberOfANameAndUpToFourBytesOfAType)
{
    const std::pair<Text, UINT> names[] = {{_T("none"), 0},
                                           {_T("12x"), 12},
                                           {_T("0080"), 80},
                                           {_T("-1"), 0xFFFFFFFF},
                                           {_T("4294967296"), 0xFFFFFFFF},
                                           {_T(" +7"), 7},
                                           {Text(254, _T('0')) + _T("9"), 9}};
    for (const auto& [name, port] : names)
    {
        SetUp();
        // The buffer has room for the longest name, which must not show in a shorter one.
        StorePorts({{name, Dword(1)}, {_T("1"), Dword(0)}});
        EXPECT_EQ(Load(), (PortTable{{1, 0}, {port, 1}})) << Printable(name);
    }
    SetUp();
    for (const auto& [stored, type] :
         {std::pair{Binary({0xFF, 0xFF}), 0xFFFF}, {Sz(_T("B")), 'B'}, {Binary({}), 0}, {Sz(_T("Bulk")), -1}})
    {
        StorePorts({{_T("80"), stored}});
        EXPECT_EQ(Load(), (PortTable{{80, type}}));
    }
}

TEST_F(PortTableTest, SaveReplacesTheStoredTable)
{
    EXPECT_TRUE(SavePortTable({}, Table));
    EXPECT_EQ(StoredTree(keys::Kauri), (Tree{{keys::Kauri, {}}, {keys::ClientPorts, {}}}));
    Tree others = {{keys::Kauri, {{_T("MACAddr"), Sz(_T("kept"))}}},
                   {keys::ServerPorts, {}},
                   {keys::ServerPorts + _T("\\9001"), {{Type, Dword(1)}}}};
    StoreTree(others);
    StoreTree({{keys::ClientPorts, {{_T("Stray"), Dword(1)}}},
               {keys::ClientPorts + _T("\\odd\\deeper"), {{Type, Dword(2)}}}});
    EXPECT_TRUE(SavePortTable({{443, 2}, {0, 5}, {70000, -2}, {443, 0}, {4294967295U, -1}}, Table));
    others[keys::ClientPorts];
    others[keys::ClientPorts + _T("\\443")] = {{Type, Dword(0)}};
    others[keys::ClientPorts + _T("\\70000")] = {{Type, Dword(0xFFFFFFFE)}};
    others[keys::ClientPorts + _T("\\4294967295")] = {{Type, Dword(0xFFFFFFFF)}};
    EXPECT_EQ(StoredTree(keys::Kauri), others);
    EXPECT_EQ(Load(), (PortTable{{70000, -2}, {4294967295U, -1}, {443, 0}}));
    EXPECT_TRUE(SavePortTable({{0, -1}, {0, 2}}, Table));
    EXPECT_EQ(Load(), PortTable{});
}

TEST_F(PortTableTest, RefusedLoadKeepsWhatItHasRead)
{
    StorePorts({{_T("1"), Dword(2)}, {_T("2"), Dword(1)}, {_T("3"), Dword(0)}});
    const std::tuple<const char*, unsigned, bool, PortTable> cases[] = {
        {"RegOpenKeyExW", 1, false, {}},
        {"RegQueryInfoKeyW", 1, false, {}},
        {"RegOpenKeyExW", 4, false, {{1, 2}, {2, 1}}},  // not ordered
        {"RegEnumKeyExW", 4, false, {{3, 0}, {2, 1}, {1, 2}}},
        {"RegQueryValueExW", 2, true, {{2, -1}, {3, 0}, {1, 2}}}};
    for (const auto& [function, nth, complete, ports] : cases)
    {
        calls::Refuse(function, nth);
        EXPECT_EQ(Load(complete), ports) << function << ' ' << nth;
    }
}

TEST_F(PortTableTest, RefusedSaveStopsAtTheCallThatFails)
{
    const Values before = {{_T("10"), Dword(1)}, {_T("20"), Dword(2)}};
    const std::tuple<const char*, unsigned, Values> cases[] = {
        {"RegCreateKeyExW", 1, before},
        {"RegDeleteTreeW", 1, before},
        {"RegCreateKeyExW", 4, {{_T("7"), Dword(2)}, {_T("6"), Dword(1)}}},
        {"RegSetValueExW", 3, {{_T("7"), Dword(2)}, {_T("6"), Dword(1)}, {_T("5"), Absent}}}};
    for (const auto& [function, nth, left] : cases)
    {
        SetUp();
        StorePorts(before);
        calls::Refuse(function, nth);
        EXPECT_FALSE(SavePortTable({{7, 2}, {0, 3}, {6, 1}, {5, 0}, {4, -1}}, Table))
            << function << ' ' << nth;
        EXPECT_EQ(calls::OpenKeys(), 0U);
        EXPECT_EQ(StoredTree(keys::ClientPorts).size(), left.size() + 1) << function << ' ' << nth;
        for (const auto& [name, type] : left)
        {
            EXPECT_EQ(Stored(keys::ClientPorts + _T("\\") + name, Type), type) << function << ' ' << nth;
        }
    }
    // A key that the call has created needs no deletion.
    SetUp();
    calls::Refuse("RegDeleteTreeW", 1);
    EXPECT_TRUE(SavePortTable({{7, 2}}, Table));
}

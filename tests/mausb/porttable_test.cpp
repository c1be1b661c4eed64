// A port table's road to the registry and back.
#include "support/media_values.h"
#include "support/settings_test.h"

namespace
{
const Text Table = _T("TCPPortsClient");

class PortTableTest : public SettingsTest
{
protected:
    static void StorePort(const Text& name, const StoredValue& type = Absent)
    {
        const Text key = keys::ClientPorts + _T("\\") + name;
        const RegistryKey created(key, RegistryKey::Access::Write);
        if (!(type == Absent))
        {
            Store(key, _T("PacketType"), type);
        }
    }

    static Ports Load(bool complete = true)
    {
        PortTable table;
        EXPECT_EQ(LoadPortTable(table, Table), complete);
        return PortsOf(table);
    }
};
}  // namespace

TEST_F(PortTableTest, LoadOfNothingCreatesNothing)
{
    EXPECT_EQ(Load(false), Ports{});
    EXPECT_FALSE(KeyExists(keys::Kauri));
    // A key with values, the table's among them, but no ports is a complete table.
    Store(keys::ClientPorts, _T("9001"), Dword(2));
    EXPECT_EQ(Load(), Ports{});
}

TEST_F(PortTableTest, LoadIsOrderedByTypeAndNotByPort)
{
    StorePort(_T("9001"), Dword(2));
    StorePort(_T("80"));
    StorePort(_T("5"), Dword(0x7FFFFFFF));
    StorePort(_T("6"), Dword(1));
    StorePort(_T("7"), Dword(0xFFFFFFFE));
    StorePort(_T("8"), Dword(0xFFFFFFFF));
    StorePort(_T("9"), Dword(0));
    StorePort(_T("3"), Dword(0));
    EXPECT_EQ(Load(), (Ports{{7, -2}, {8, -1}, {80, -1}, {3, 0}, {9, 0}, {6, 1}, {9001, 2}, {5, 0x7FFFFFFF}}))
        << "of equal types in the registry's order";
}

TEST_F(PortTableTest, LoadKeepsTheRegistrysOrderOfEqualTypes)
{
    Ports expected[2];
    for (int port = 10; port < 42; ++port)
    {
        const int type = port % 2;
        StorePort({static_cast<TCHAR>(_T('0') + port / 10), static_cast<TCHAR>(_T('0') + port % 10)},
                  Dword(static_cast<DWORD>(type)));
        expected[type].emplace_back(port, type);
    }
    expected[0].insert(expected[0].end(), expected[1].begin(), expected[1].end());
    EXPECT_EQ(Load(), expected[0]);
}

TEST_F(PortTableTest, LoadTakesAnyNameForItsLeadingNumber)
{
    const std::pair<Text, UINT> cases[] = {{_T("none"), 0},         {_T("12x"), 12},
                                           {_T("0080"), 80},        {_T("70000"), 70000},
                                           {_T("-1"), 0xFFFFFFFF},  {_T("4294967295"), 0xFFFFFFFF},
                                           {_T(" +7"), 7},          {_T("4294967296"), 0xFFFFFFFF},
                                           {Text(250, _T('0')), 0}, {Text(254, _T('0')) + _T("9"), 9}};
    for (const auto& [name, port] : cases)
    {
        SCOPED_TRACE(Printable(name));
        ClearSettings();
        StorePort(name, Dword(1));
        // A short name beside a long one: the buffer is the longer one's.
        StorePort(_T("1"), Dword(0));
        EXPECT_EQ(Load(), (Ports{{1, 0}, {port, 1}}));
    }
}

TEST_F(PortTableTest, LoadTakesTheBytesOfATypeThatFit)
{
    const std::pair<StoredValue, int> cases[] = {{Binary({2}), 2},     {Binary({0xFF, 0xFF}), 0xFFFF},
                                                 {Sz(_T("B")), 'B'},   {Binary({}), 0},
                                                 {Sz(_T("Bulk")), -1}, {Binary({1, 0, 0, 0, 0}), -1}};
    for (const auto& [stored, type] : cases)
    {
        SCOPED_TRACE(testing::PrintToString(stored));
        StorePort(_T("80"), stored);
        EXPECT_EQ(Load(), (Ports{{80, type}}));
    }
}

TEST_F(PortTableTest, SaveReplacesTheStoredTable)
{
    const Text otherKey = keys::ServerPorts + _T("\\9001");
    Store(keys::Kauri, _T("MACAddr"), Sz(_T("kept")));
    Store(otherKey, _T("PacketType"), Dword(1));
    Store(keys::ClientPorts, _T("Stray"), Dword(1));
    StorePort(_T("80"), Dword(2));
    StorePort(_T("odd\\deeper"), Dword(2));
    EXPECT_TRUE(SavePortTable({{443, 2}, {0, 5}, {70000, -2}, {443, 0}, {4294967295U, -1}}, Table));
    const Tree saved = {{keys::Kauri, {{_T("MACAddr"), Sz(_T("kept"))}}},
                        {keys::ServerPorts, {}},
                        {otherKey, {{_T("PacketType"), Dword(1)}}},
                        {keys::ClientPorts, {}},
                        {keys::ClientPorts + _T("\\443"), {{_T("PacketType"), Dword(0)}}},
                        {keys::ClientPorts + _T("\\70000"), {{_T("PacketType"), Dword(0xFFFFFFFE)}}},
                        {keys::ClientPorts + _T("\\4294967295"), {{_T("PacketType"), Dword(0xFFFFFFFF)}}}};
    EXPECT_EQ(StoredTree(keys::Kauri), saved);
    EXPECT_EQ(Load(), (Ports{{70000, -2}, {4294967295U, -1}, {443, 0}}));
    EXPECT_TRUE(SavePortTable({{0, -1}, {0, 2}}, Table));
    EXPECT_TRUE(KeyExists(keys::ClientPorts));
    EXPECT_EQ(Load(), Ports{});
}

TEST_F(PortTableTest, FirstSaveCreatesTheKey)
{
    EXPECT_TRUE(SavePortTable({}, Table));
    EXPECT_EQ(StoredTree(keys::Kauri), (Tree{{keys::Kauri, {}}, {keys::ClientPorts, {}}}));
}

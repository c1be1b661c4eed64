// A port table while the registry refuses one call: what the table or the registry then holds.
#include "headless.h"
#include "support/media_values.h"
#include "support/settings_test.h"

namespace
{
const Text Table = _T("TCPPortsServer");

Text PortKey(const Text& name)
{
    return Text(keys::ServerPorts).append(_T("\\")).append(name);
}

// The stored table as its subkeys and their types; no type is Absent.
Values StoredPorts()
{
    Values ports;
    for (const Text& name : StoredSubkeys(keys::ServerPorts))
    {
        ports[name] = Stored(PortKey(name), _T("PacketType"));
    }
    return ports;
}

class PortTableFaultsTest : public SettingsTest
{
protected:
    void TearDown() override
    {
        headless::ClearFaults();
        SettingsTest::TearDown();
    }

    // The fault has struck, and left no key open.
    static void ExpectStruck(const char* function, unsigned nth)
    {
        EXPECT_GE(headless::CallCount(function), nth);
        headless::ClearFaults();
        EXPECT_EQ(headless::OpenKeyCount(), 0U);
    }
};
}  // namespace

TEST_F(PortTableFaultsTest, LoadKeepsWhatItReadUntilThen)
{
    struct Case
    {
        const char* function;
        unsigned nth;
        bool complete;
        Ports ports;
    };
    const Case cases[] = {{"RegOpenKeyExW", 1, false, {}},
                          {"RegQueryInfoKeyW", 1, false, {}},
                          {"RegEnumKeyExW", 1, false, {}},
                          {"RegOpenKeyExW", 2, false, {}},
                          {"RegOpenKeyExW", 4, false, {{1, 2}, {2, 1}}},  // not ordered
                          {"RegEnumKeyExW", 3, false, {{2, 1}, {1, 2}}},
                          {"RegEnumKeyExW", 4, false, {{3, 0}, {2, 1}, {1, 2}}},
                          {"RegQueryValueExW", 2, true, {{2, -1}, {3, 0}, {1, 2}}}};
    Store(keys::ServerPorts + _T("\\1"), _T("PacketType"), Dword(2));
    Store(keys::ServerPorts + _T("\\2"), _T("PacketType"), Dword(1));
    Store(keys::ServerPorts + _T("\\3"), _T("PacketType"), Dword(0));
    for (const Case& c : cases)
    {
        SCOPED_TRACE(testing::Message() << c.function << ' ' << c.nth);
        headless::ResetCallCounts();
        headless::FailCall(c.function, c.nth, ERROR_ACCESS_DENIED);
        PortTable table;
        EXPECT_EQ(LoadPortTable(table, Table), c.complete);
        ExpectStruck(c.function, c.nth);
        EXPECT_EQ(PortsOf(table), c.ports);
    }
}

TEST_F(PortTableFaultsTest, SaveStopsAtTheCallThatFails)
{
    struct Case
    {
        const char* function;
        unsigned nth;
        Values left;
    };
    const Values before = {{_T("10"), Dword(1)}, {_T("20"), Dword(2)}};
    const Case cases[] = {
        {"RegCreateKeyExW", 1, before},
        {"RegDeleteTreeW", 1, before},
        {"RegCreateKeyExW", 2, {}},
        {"RegCreateKeyExW", 4, {{_T("7"), Dword(2)}, {_T("6"), Dword(1)}}},
        {"RegSetValueExW", 1, {{_T("7"), Absent}}},
        {"RegSetValueExW", 3, {{_T("7"), Dword(2)}, {_T("6"), Dword(1)}, {_T("5"), Absent}}}};
    for (const Case& c : cases)
    {
        SCOPED_TRACE(testing::Message() << c.function << ' ' << c.nth);
        ClearSettings();
        for (const auto& [name, type] : before)
        {
            Store(PortKey(name), _T("PacketType"), type);
        }
        headless::ResetCallCounts();
        headless::FailCall(c.function, c.nth, ERROR_ACCESS_DENIED);
        EXPECT_FALSE(SavePortTable({{7, 2}, {0, 3}, {6, 1}, {5, 0}, {4, -1}}, Table));
        ExpectStruck(c.function, c.nth);
        EXPECT_EQ(StoredPorts(), c.left);
    }
}

TEST_F(PortTableFaultsTest, AKeyOfItsOwnMakingIsNotEmptied)
{
    headless::FailCall("RegDeleteTreeW", 1, ERROR_ACCESS_DENIED);
    EXPECT_TRUE(SavePortTable({{7, 2}}, Table));
    EXPECT_FALSE(SavePortTable({{8, 1}}, Table)) << "the key stands now";
    headless::ClearFaults();
    EXPECT_EQ(StoredPorts(), (Values{{_T("7"), Dword(2)}}));
}

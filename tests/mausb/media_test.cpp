// MAUSB Media Settings: what its network type and its logging bring to life, and its two identifiers.
#include "support/scripts.h"

namespace
{
constexpr int IdTCP = 1066;
constexpr int IdUDP = 1067;
constexpr int IdLog = 1055;
constexpr int IdOUI = 1115;
constexpr int IdPID = 1117;

class MediaTest : public SettingsTest
{
protected:
    static void StoreValue(LPCTSTR name, const StoredValue& value) { Store(keys::Kauri, name, value); }
    static StoredValue StoredUnder(LPCTSTR name) { return Stored(keys::Kauri, name); }

    static void ExpectEnabled(const Sheet& sheet, const std::vector<int>& ids, bool enabled)
    {
        for (const int id : ids)
        {
            EXPECT_EQ(sheet.IsEnabled(id), enabled) << id;
        }
    }
    static void ExpectNetwork(const Sheet& sheet, bool udp)
    {
        EXPECT_EQ(sheet.CheckOf(udp ? IdUDP : IdTCP), BST_CHECKED);
        ExpectEnabled(sheet, {1057, 1056, 1060, 1118, 1119, 1139, 1190, 1191}, !udp);
        ExpectEnabled(sheet, {1065, 1078, 1064, 1077, 1063, 1121, 1120}, udp);
        ExpectEnabled(sheet, {1069, IdTCP, IdUDP, IdLog, 1185, 1186, 1070, 1072, IdOUI, IdPID, 1123}, true);
        for (const int unused : {1157, 1151, 1152, 1153, 1154})
        {
            EXPECT_FALSE(sheet.IsShown(unused) || sheet.IsEnabled(unused)) << unused;
        }
    }
};
}  // namespace

TEST_F(MediaTest, NetworkTypeAndLoggingDecideWhichControlsAreLive)
{
    // Only the exact text is UDP; neither its terminator nor its type matters. Of the log what the check box
    // holds is saved.
    const std::tuple<StoredValue, bool, DWORD, DWORD> cases[] = {
        {Sz(_T("udp/ip")), false, 0, 0},
        {Sz(_T("UDP/IP ")), false, 1, 1},
        {Dword(1), false, 2, 1},
        {Binary({'U', 0, 'D', 0, 'P', 0, '/', 0, 'I', 0, 'P', 0}), true, 3, 0},
        {Sz(_T("UDP/IP")), true, 0xFFFFFFFF, 0}};
    for (const auto& [type, isUDP, log, logSaved] : cases)
    {
        StoreValue(_T("NetworkType"), type);
        StoreValue(_T("NetworkLevelLog"), Dword(log));
        RunOnTab(tabs::Media, [udp = isUDP, logs = logSaved != 0](const Sheet& sheet) {
            for (const bool turned : {false, true, false})
            {
                ExpectNetwork(sheet, udp != turned);
                ExpectEnabled(sheet, {1073, 1074}, logs != turned);
                sheet.Click(udp == turned ? IdUDP : IdTCP);
                sheet.Click(IdLog);
            }
            sheet.Click(udp ? IdUDP : IdTCP);
            sheet.Click(IdLog);
            sheet.Ok();
        });
        EXPECT_EQ(StoredUnder(_T("NetworkType")), Sz(isUDP ? _T("UDP/IP") : _T("TCP/IP")));
        EXPECT_EQ(StoredUnder(_T("NetworkLevelLog")), Dword(logSaved));
    }
}

TEST_F(MediaTest, SnapIdentifiersComeUpAsLoadedAndTheLastOneMarks)
{
    using Identifier = std::pair<DWORD, Text>;  // and what it is shown as
    for (const auto& [first, second] :
         {std::pair{Identifier(0, _T("0")), Identifier(0, _T("0"))},
          {Identifier(0x506F9A, _T("506F9A")), Identifier(0, _T("0"))},
          {Identifier(0x80000000, _T("FFFFFFFF80000000")), Identifier(0xFFFFFFFF, Text(16, _T('F')))}})
    {
        StoreValue(_T("SnapIdOUI"), Dword(first.first));
        StoreValue(_T("SnapIdPID"), Dword(second.first));
        RunEditor([&oui = first, &pid = second](const Sheet& sheet) {
            // In turn: "0" in the OUI's edit while the other is empty, which takes both members to 0; "0"
            // in the PID's; then what was loaded, in each; and the mark told again once the page is
            // known.
            Events events = EventsOf(sheet, [&] { EXPECT_TRUE(sheet.Select(tabs::Media)); });
            events.resize(4);
            const auto markOf = [](DWORD id) { return id != 0 ? "marked" : "unmarked"; };
            EXPECT_EQ(events, (Events{markOf(oui.first), "unmarked", markOf(oui.first), markOf(pid.first)}));
            EXPECT_EQ(sheet.CanApply(), pid.first != 0);
            // The members are back at the loaded numbers: the same text again changes nothing.
            for (const auto& [id, text] : {std::pair{IdOUI, oui.second}, {IdPID, pid.second}})
            {
                EXPECT_EQ(sheet.TextOf(id), text);
                sheet.SetText(id, text);
                EXPECT_FALSE(sheet.CanApply());
            }
            sheet.Ok();
        });
        EXPECT_EQ(StoredUnder(_T("SnapIdOUI")), Dword(first.first));
        EXPECT_EQ(StoredUnder(_T("SnapIdPID")), Dword(second.first));
    }
}

TEST_F(MediaTest, SnapIdentifierTakesHexadecimalDigitsAndAnythingPasted)
{
    RunOnTab(tabs::Media, [](const Sheet& sheet) {
        const auto expectStored = [&sheet](int id, DWORD number) {
            sheet.Click(IdLog);
            sheet.Apply();
            EXPECT_EQ(StoredUnder(id == IdOUI ? _T("SnapIdOUI") : _T("SnapIdPID")), Dword(number));
        };
        for (const int id : {IdOUI, IdPID})
        {
            sheet.Retype(id, _T("g1 -fZ0x"));
            EXPECT_EQ(sheet.TextOf(id), _T("1f0"));
            expectStored(id, 0x1F0);
            sheet.Retype(id, _T("FFFFFFFF80000001"));
            expectStored(id, 0x80000001);
            sheet.Retype(id, {});
            expectStored(id, 0);
            // The prefix counts as a digit of 33 here; more than the page's exchange looks at is
            // stored all the same.
            sheet.SetText(id, _T("0x1F"));
            expectStored(id, 33 * 256 + 0x1F);
            sheet.SetText(id, Text(63, _T('0')) + _T("1"));
            expectStored(id, 1);
        }
        // What is no number holds the page, without a prompt. What the exchange reaches before it is
        // taken, what lies behind it is not.
        EXPECT_EQ(CountPrompts([&sheet] {
                      sheet.SetText(IdOUI, _T("zz"));
                      EXPECT_FALSE(sheet.CanApply());
                      sheet.Ok();
                      EXPECT_TRUE(sheet.IsOpen());
                      EXPECT_EQ(GetFocus(), sheet.Control(IdOUI));
                      sheet.Retype(1072, _T("a"));
                      EXPECT_TRUE(sheet.CanApply());
                      sheet.Retype(1123, _T("7"));
                      EXPECT_FALSE(sheet.CanApply());
                  }),
                  0);
    });
}

TEST_F(MediaTest, PortButtonsEditACopyOfTheirTable)
{
    for (const auto& [button, title, table] : {std::tuple{1190, titles::ClientPorts, keys::ClientPorts},
                                               {1191, titles::ServerPorts, keys::ServerPorts}})
    {
        SetUp();
        for (int port = 1; port <= 5; ++port)
        {
            Store(table + _T("\\") + Decimal(port), _T("PacketType"), Dword(0));
        }
        const auto ports = [&key = table] { return StoredTree(key).size() - 1; };
        RunOnTab(tabs::Media, [&, id = button, &name = title](const Sheet& sheet) {
            const auto open = [&](const std::function<void(const Form&)>& script) {
                WithDialog(name, sheet, id, script);
            };
            sheet.Apply();
            open([](const Form& form) { form.Retype(1188, _T("81")); });
            EXPECT_FALSE(sheet.CanApply());
            EXPECT_EQ(ports(), 5U) << "cancelled: all as they were";
            // Confirmed with nothing changed: marked, and cut to what the dialog shows.
            open([](const Form& form) { form.Click(IDOK); });
            EXPECT_TRUE(sheet.CanApply());
            EXPECT_EQ(ports(), 5U) << "in memory only";
            sheet.Apply();
            EXPECT_EQ(ports(), 4U);
            open([](const Form& form) {
                form.Retype(1191, {});
                form.Click(IDOK);
            });
            open([](const Form& form) { EXPECT_EQ(form.TextOf(1191), Text()) << "keeps its place"; });
            sheet.Ok();
        });
        EXPECT_EQ(ports(), 3U);
        EXPECT_FALSE(KeyExists(table + _T("\\2")));
    }
}

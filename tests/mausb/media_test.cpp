// MAUSB Media Settings: what its network type brings to life, and its two identifiers.
#include "support/marks.h"
#include "support/settings.h"

namespace {
constexpr int IdTCP = 1066;
constexpr int IdUDP = 1067;
constexpr int IdLog = 1055;
constexpr int IdOUI = 1115;
constexpr int IdPID = 1117;

class MediaTest : public SettingsTest {
protected:
    void SetUp() override {
        SettingsTest::SetUp();
        InstallTools({KauriQB});
    }

    static void StoreValue(LPCTSTR name, const StoredValue& value) { Store(keys::Kauri, name, value); }
    static StoredValue StoredUnder(LPCTSTR name) { return Stored(keys::Kauri, name); }

    static void ExpectEnabled(const Sheet& sheet, const std::vector<int>& ids, bool enabled) {
        for (const int id : ids) {
            EXPECT_EQ(sheet.IsEnabled(id), enabled) << id;
        }
    }

    static void ExpectNetwork(const Sheet& sheet, bool udp) {
        EXPECT_EQ(sheet.CheckOf(IdTCP), udp ? BST_UNCHECKED : BST_CHECKED);
        EXPECT_EQ(sheet.CheckOf(IdUDP), udp ? BST_CHECKED : BST_UNCHECKED);
        ExpectEnabled(sheet, {1057, 1056, 1060, 1118, 1119, 1139, 1190, 1191}, !udp);
        ExpectEnabled(sheet, {1065, 1078, 1064, 1077, 1063, 1121, 1120}, udp);
        ExpectEnabled(
            sheet,
            {1069, IdTCP, IdUDP, IdLog, 1185, 1186, 1070, 1071, 1072, 1113, 1114, IdOUI, 1116, IdPID, 1122, 1123},
            true);
        for (const int unused : {1157, 1151, 1152, 1153, 1154}) {
            EXPECT_FALSE(sheet.IsShown(unused)) << unused;
            EXPECT_FALSE(sheet.IsEnabled(unused)) << unused;
        }
    }
};
}  // namespace

TEST_F(MediaTest, NetworkTypeDecidesWhichControlsAreLive) {
    const std::pair<StoredValue, bool> cases[] = {{Sz(_T("udp/ip")), false},
                                                  {Sz(_T("UDP/IP ")), false},
                                                  {Sz(_T("UDP")), false},
                                                  {Dword(1), false},
                                                  // Neither terminator nor type matters.
                                                  {Binary({'U', 0, 'D', 0, 'P', 0, '/', 0, 'I', 0, 'P', 0}), true},
                                                  {Sz(_T("UDP/IP")), true}};
    for (const auto& [stored, udp] : cases) {
        SCOPED_TRACE(testing::PrintToString(stored));
        StoreValue(_T("NetworkType"), stored);
        RunOnTab(tabs::Media, [udp = udp](const Sheet& sheet) {
            ExpectNetwork(sheet, udp);
            sheet.Click(udp ? IdTCP : IdUDP);
            ExpectNetwork(sheet, !udp);
            sheet.Click(udp ? IdUDP : IdTCP);
            ExpectNetwork(sheet, udp);
            sheet.Ok();
        });
        EXPECT_EQ(StoredUnder(_T("NetworkType")), Sz(udp ? _T("UDP/IP") : _T("TCP/IP")));
    }
}

TEST_F(MediaTest, LoggingDecidesWhetherItsLimitIsLive) {
    // What a check box does not show is gone with the next save.
    const std::pair<DWORD, DWORD> flags[] = {{0, 0}, {1, 1}, {2, 1}, {3, 0}, {0xFFFFFFFF, 0}};
    for (const auto& [stored, shown] : flags) {
        SCOPED_TRACE(stored);
        StoreValue(_T("NetworkLevelLog"), Dword(stored));
        RunOnTab(tabs::Media, [on = shown != 0](const Sheet& sheet) {
            ExpectEnabled(sheet, {1073, 1074}, on);
            sheet.Click(IdLog);
            ExpectEnabled(sheet, {1073, 1074}, !on);
            sheet.Click(IdLog);
            ExpectEnabled(sheet, {1073, 1074}, on);
            sheet.Ok();
        });
        EXPECT_EQ(StoredUnder(_T("NetworkLevelLog")), Dword(shown));
    }
}

TEST_F(MediaTest, SnapIdentifiersComeUpAsLoadedAndTheLastOneMarks) {
    struct Case {
        DWORD oui;
        DWORD pid;
        Text ouiText;
        Text pidText;
    };
    for (const Case& c :
         {Case{0, 0, _T("0"), _T("0")}, Case{0x506F9A, 0, _T("506F9A"), _T("0")}, Case{0, 1, _T("0"), _T("1")},
          Case{0x80000000, 0xFFFFFFFF, _T("FFFFFFFF80000000"), _T("FFFFFFFFFFFFFFFF")}}) {
        SCOPED_TRACE(testing::Message() << c.oui << ", " << c.pid);
        StoreValue(_T("SnapIdOUI"), Dword(c.oui));
        StoreValue(_T("SnapIdPID"), Dword(c.pid));
        RunEditor([&c](const Sheet& sheet) {
            // In turn: "0" in the OUI's edit while the other is empty, which takes both members to 0; "0"
            // in the PID's; then what was loaded, in each; and the mark told again once the page is
            // known.
            Events events = EventsOf(sheet, [&] { EXPECT_TRUE(sheet.Select(tabs::Media)); });
            events.resize(4);
            const auto markOf = [](DWORD id) { return id != 0 ? "marked" : "unmarked"; };
            EXPECT_EQ(events, (Events{markOf(c.oui), "unmarked", markOf(c.oui), markOf(c.pid)}));
            EXPECT_EQ(sheet.CanApply(), c.pid != 0);
            EXPECT_EQ(sheet.TextOf(IdOUI), c.ouiText);
            EXPECT_EQ(sheet.TextOf(IdPID), c.pidText);
            // The members are back at the loaded numbers: the same text again changes nothing.
            for (const auto& [id, text] : {std::pair{IdOUI, c.ouiText}, {IdPID, c.pidText}}) {
                sheet.SetText(id, text);
                EXPECT_FALSE(sheet.CanApply());
            }
            sheet.Ok();
        });
        EXPECT_EQ(StoredUnder(_T("SnapIdOUI")), Dword(c.oui));
        EXPECT_EQ(StoredUnder(_T("SnapIdPID")), Dword(c.pid));
    }
}

TEST_F(MediaTest, SnapIdentifierTakesHexadecimalDigitsAndAnythingPasted) {
    struct Case {
        bool pasted;
        Text keys;
        Text text;
        DWORD stored;
    };
    for (const Case& c :
         {Case{false, _T("g1 -fZ0x"), _T("1f0"), 0x1F0}, Case{false, _T("123456789"), _T("123456789"), 0x23456789},
          Case{false, _T("FFFFFFFF80000001"), _T("FFFFFFFF80000001"), 0x80000001}, Case{false, {}, {}, 0},
          // The prefix counts as a digit of 33 here.
          Case{true, _T("0x1F"), _T("0x1F"), 33 * 256 + 0x1F}, Case{true, _T(" 1"), _T(" 1"), 0xFFFFFFF1},
          // Longer than what the page's exchange looks at.
          Case{true, Text(63, _T('0')) + _T("1"), Text(63, _T('0')) + _T("1"), 1}}) {
        SCOPED_TRACE(Printable(c.keys));
        RunOnTab(tabs::Media, [&c](const Sheet& sheet) {
            for (const int id : {IdOUI, IdPID}) {
                c.pasted ? sheet.SetText(id, c.keys) : sheet.Retype(id, c.keys);
                EXPECT_EQ(sheet.TextOf(id), c.text);
            }
            sheet.Ok();
            EXPECT_FALSE(sheet.IsOpen());
        });
        EXPECT_EQ(StoredUnder(_T("SnapIdOUI")), Dword(c.stored));
        EXPECT_EQ(StoredUnder(_T("SnapIdPID")), Dword(c.stored));
    }
}

TEST_F(MediaTest, SnapIdentifierThatIsNoNumberHoldsThePageWithoutAPrompt) {
    RunOnTab(tabs::Media, [](const Sheet& sheet) {
        EXPECT_EQ(CountPrompts([&sheet] {
                      sheet.SetText(IdOUI, _T("zz"));
                      EXPECT_FALSE(sheet.CanApply());
                      sheet.Ok();
                      EXPECT_TRUE(sheet.IsOpen());
                      EXPECT_FALSE(sheet.Select(tabs::General));
                  }),
                  0);
        EXPECT_EQ(GetFocus(), sheet.Control(IdOUI));
        // What the exchange reaches before it is taken, what lies behind it is not.
        sheet.Retype(1072, _T("a"));
        EXPECT_TRUE(sheet.CanApply());
        sheet.Retype(1123, _T("7"));
        EXPECT_FALSE(sheet.CanApply());
        sheet.Retype(IdOUI, _T("A"));
        EXPECT_TRUE(sheet.CanApply());
        sheet.Ok();
    });
    EXPECT_EQ(StoredUnder(_T("SnapIdOUI")), Dword(10));
    EXPECT_EQ(StoredUnder(_T("MaxPacketSizeSNAP")), Dword(7));
}

TEST_F(MediaTest, PortButtonsEditACopyOfTheirTable) {
    for (const auto& [button, title, table] :
         {std::tuple{1190, titles::ClientPorts, keys::ClientPorts}, {1191, titles::ServerPorts, keys::ServerPorts}}) {
        SCOPED_TRACE(Printable(title));
        SetUp();
        for (int port = 1; port <= 5; ++port) {
            Store(table + _T("\\") + Decimal(port), _T("PacketType"), Dword(0));
        }
        const auto ports = [&table = table] { return StoredTree(table).size() - 1; };
        RunOnTab(tabs::Media, [&, id = button, &name = title](const Sheet& sheet) {
            const auto open = [&](const std::function<void(const Form&)>& script) {
                WithDialog(name, script, [&] { sheet.Click(id); });
            };
            sheet.Apply();
            open([](const Form& form) {
                form.Retype(1188, _T("81"));
                form.Click(IDCANCEL);
            });
            EXPECT_FALSE(sheet.CanApply());
            sheet.Click(IdLog);
            sheet.Apply();
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

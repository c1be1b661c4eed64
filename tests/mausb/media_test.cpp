// MAUSB Media Settings: the controls that the network type and logging enable, the SNAP identifiers, and the
// port tables.
#include "resource.h"
#include "support/scripts.h"

namespace
{
class MediaTest : public SettingsTest
{
protected:
    static StoredValue StoredUnder(LPCTSTR name) { return Stored(keys::Kauri, name); }
    static void ExpectNetwork(const Sheet& sheet, bool udp)
    {
        EXPECT_EQ(sheet.CheckOf(udp ? IDC_NETWORK_UDP : IDC_NETWORK_TCP), BST_CHECKED);
        ExpectEnabled(
            sheet,
            {IDC_TCP_CLIENT_ADDRESS, IDC_TCP_CLIENT_ADDRESS_LABEL, IDC_TCP_OPTIONS, IDC_TCP_PACKET_SIZE_LABEL,
             IDC_TCP_PACKET_SIZE, IDC_ADVANCED_TCP, IDC_TCP_CLIENT_PORTS, IDC_TCP_SERVER_PORTS},
            !udp);
        ExpectEnabled(sheet,
                      {IDC_UDP_ADDRESS, IDC_UDP_PORT, IDC_UDP_ADDRESS_LABEL, IDC_UDP_PORT_LABEL,
                       IDC_UDP_OPTIONS, IDC_UDP_PACKET_SIZE_LABEL, IDC_UDP_PACKET_SIZE},
                      udp);
        ExpectEnabled(sheet,
                      {IDC_NETWORK_TYPE, IDC_NETWORK_LOG, IDC_TCP_CLIENT_OPTIONS, IDC_TCP_SERVER_OPTIONS,
                       IDC_SNAP_OPTIONS, IDC_MAC_ADDRESS, IDC_SNAP_OUI, IDC_SNAP_PID, IDC_SNAP_PACKET_SIZE},
                      true);
        for (const int unused :
             {IDC_USE_UDP_FOR_ISOCH, IDC_ISOCH_LABEL, IDC_ISOCH, IDC_MAX_ISOCH_LABEL, IDC_MAX_ISOCH})
        {
            EXPECT_FALSE(sheet.IsShown(unused) || sheet.IsEnabled(unused)) << unused;
        }
    }
};
}  // namespace

TEST_F(MediaTest, NetworkTypeAndLoggingDecideWhichControlsAreEnabled)
{
    // Only the exact text means UDP, with or without its terminator and with any type. For logging, the page
    // stores what the check box can hold.
    const std::tuple<StoredValue, bool, DWORD, DWORD> cases[] = {
        {Sz(_T("udp/ip")), false, 0, 0},
        {Sz(_T("UDP/IP ")), false, 1, 1},
        {Binary({'U', 0, 'D', 0, 'P', 0, '/', 0, 'I', 0, 'P', 0}), true, 2, 1},
        {Sz(_T("UDP/IP")), true, 0xFFFFFFFF, 0}};
    for (const auto& [type, udp, log, logStored] : cases)
    {
        Store(keys::Kauri, _T("NetworkType"), type);
        Store(keys::Kauri, _T("NetworkLevelLog"), Dword(log));
        const Editor sheet(tabs::Media);
        for (const bool turned : {false, true, false})
        {
            ExpectNetwork(sheet, udp != turned);
            ExpectEnabled(sheet, {IDC_MAX_BYTES_TO_LOG, IDC_MAX_BYTES_TO_LOG_LABEL},
                          (logStored != 0) != turned);
            sheet.Click(udp == turned ? IDC_NETWORK_UDP : IDC_NETWORK_TCP);
            sheet.Click(IDC_NETWORK_LOG);
        }
        sheet.Click(udp ? IDC_NETWORK_UDP : IDC_NETWORK_TCP);
        sheet.Click(IDC_NETWORK_LOG);
        sheet.Ok();
        EXPECT_EQ(StoredUnder(_T("NetworkType")), Sz(udp ? _T("UDP/IP") : _T("TCP/IP")));
        EXPECT_EQ(StoredUnder(_T("NetworkLevelLog")), Dword(logStored));
    }
}

TEST_F(MediaTest, SnapIdentifiersAreShownAsLoadedAndThePIDDecidesTheMark)
{
    const std::tuple<DWORD, Text, DWORD, Text> cases[] = {
        {0, _T("0"), 0, _T("0")},
        {0x506F9A, _T("506F9A"), 0, _T("0")},
        {0x80000000, _T("FFFFFFFF80000000"), 0xFFFFFFFF, Text(16, _T('F'))}};
    for (const auto& [oui, ouiText, pid, pidText] : cases)
    {
        Store(keys::Kauri, _T("SnapIdOUI"), Dword(oui));
        Store(keys::Kauri, _T("SnapIdPID"), Dword(pid));
        const Editor sheet;
        // The page sets "0" in the OUI's edit while the PID's is empty, which sets both members to 0; then
        // "0" in the PID's edit; then the loaded number in each. It repeats its mark when it has been
        // created.
        Events events = EventsOf(sheet, [&] { EXPECT_TRUE(sheet.Select(tabs::Media)); });
        events.resize(4);
        const auto markOf = [](DWORD id) { return id != 0 ? "marked" : "unmarked"; };
        EXPECT_EQ(events, (Events{markOf(oui), "unmarked", markOf(oui), markOf(pid)}));
        EXPECT_EQ(sheet.CanApply(), pid != 0);
        // The members have the loaded numbers again, so the same text changes nothing.
        for (const auto& [id, text] : {std::pair{IDC_SNAP_OUI, ouiText}, {IDC_SNAP_PID, pidText}})
        {
            EXPECT_EQ(sheet.TextOf(id), text);
            sheet.SetText(id, text);
            EXPECT_FALSE(sheet.CanApply());
        }
        sheet.Ok();
        EXPECT_EQ(StoredUnder(_T("SnapIdOUI")), Dword(oui));
        EXPECT_EQ(StoredUnder(_T("SnapIdPID")), Dword(pid));
    }
}

TEST_F(MediaTest, SnapIdentifierTakesHexadecimalDigitsAndAnyPastedText)
{
    const Editor sheet(tabs::Media);
    for (const auto& [id, name] : {std::pair{IDC_SNAP_OUI, _T("SnapIdOUI")}, {IDC_SNAP_PID, _T("SnapIdPID")}})
    {
        sheet.Retype(id, _T("g1 -fZ0x"));
        EXPECT_EQ(sheet.TextOf(id), _T("1f0"));
        // The "x" of a prefix counts as the digit 33, and digits behind the 63 characters that the exchange
        // reads count too.
        const std::pair<Text, DWORD> cases[] = {{_T("1f0"), 0x1F0},
                                                {_T("FFFFFFFF80000001"), 0x80000001},
                                                {{}, 0},
                                                {_T("0x1F"), 33 * 256 + 0x1F},
                                                {Text(63, _T('0')) + _T("1"), 1}};
        for (const auto& [text, number] : cases)
        {
            sheet.SetText(id, text);
            sheet.Click(IDC_NETWORK_LOG);
            sheet.Apply();
            EXPECT_EQ(StoredUnder(name), Dword(number)) << Printable(text);
        }
    }
    // A text that is no number keeps the sheet on the page, without a prompt. The exchange reads the controls
    // before it, but none behind it.
    const int prompts = CountPrompts([&] {
        sheet.SetText(IDC_SNAP_OUI, _T("zz"));
        EXPECT_FALSE(sheet.CanApply());
        sheet.Ok();
        EXPECT_TRUE(sheet.IsOpen());
        EXPECT_EQ(GetFocus(), sheet.Control(IDC_SNAP_OUI));
        sheet.Retype(IDC_MAC_ADDRESS, _T("a"));
        EXPECT_TRUE(sheet.CanApply());
        sheet.Retype(IDC_SNAP_PACKET_SIZE, _T("7"));
        EXPECT_FALSE(sheet.CanApply());
    });
    EXPECT_EQ(prompts, 0);
}

TEST_F(MediaTest, PortButtonsEditACopyOfTheirTable)
{
    for (const auto& [button, title, table] :
         {std::tuple{IDC_TCP_CLIENT_PORTS, titles::ClientPorts, keys::ClientPorts},
          {IDC_TCP_SERVER_PORTS, titles::ServerPorts, keys::ServerPorts}})
    {
        SetUp();
        for (int port = 1; port <= 5; ++port)
        {
            Store(table + _T("\\") + Decimal(port), _T("PacketType"), Dword(0));
        }
        const auto ports = [&key = table] { return StoredTree(key).size() - 1; };
        const Editor sheet(tabs::Media);
        sheet.Apply();
        WithDialog(title, sheet, button, [](const Form& form) { form.Retype(IDC_PORT_EDIT_0, _T("81")); });
        EXPECT_FALSE(sheet.CanApply());
        EXPECT_EQ(ports(), 5U) << "cancelled";
        // OK without a change marks the page, and drops the ports that the dialog does not show.
        WithDialog(title, sheet, button, [](const Form& form) { form.Click(IDOK); });
        EXPECT_TRUE(sheet.CanApply());
        EXPECT_EQ(ports(), 5U) << "in memory only";
        sheet.Apply();
        EXPECT_EQ(ports(), 4U);
        WithDialog(title, sheet, button, [](const Form& form) {
            form.Retype(IDC_PORT_EDIT_1, {});
            form.Click(IDOK);
        });
        WithDialog(title, sheet, button, [](const Form& form) {
            EXPECT_EQ(form.TextOf(IDC_PORT_EDIT_1), Text()) << "an empty row stays where it is";
        });
        sheet.Ok();
        EXPECT_EQ(ports(), 3U);
        EXPECT_FALSE(KeyExists(table + _T("\\2")));
    }
}

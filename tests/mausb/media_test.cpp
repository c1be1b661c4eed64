// MAUSB Media Settings: how the page comes up, what an edit does to it, and what is stored.
#include "resource.h"
#include "support/media_values.h"
#include "support/tips.h"
#include "support/tool_page.h"

namespace
{
class MediaTest : public ToolPageTest
{
protected:
    // Controls that follow the network type.
    static constexpr int ForTCP[] = {IDC_TCP_CLIENT_ADDRESS, IDC_TCP_CLIENT_ADDRESS_LABEL,
                                     IDC_TCP_OPTIONS,        IDC_TCP_PACKET_SIZE_LABEL,
                                     IDC_TCP_PACKET_SIZE,    IDC_ADVANCED_TCP,
                                     IDC_TCP_CLIENT_PORTS,   IDC_TCP_SERVER_PORTS};
    static constexpr int ForUDP[] = {IDC_UDP_ADDRESS,          IDC_UDP_ADDRESS_LABEL, IDC_UDP_PORT,
                                     IDC_UDP_PORT_LABEL,       IDC_UDP_OPTIONS,       IDC_UDP_PACKET_SIZE,
                                     IDC_UDP_PACKET_SIZE_LABEL};
    static constexpr int ForBoth[] = {IDC_NETWORK_TYPE,       IDC_NETWORK_TCP,
                                      IDC_NETWORK_UDP,        IDC_NETWORK_LOG,
                                      IDC_SNAP_OPTIONS,       IDC_MAC_ADDRESS,
                                      IDC_MAC_ADDRESS_LABEL,  IDC_SNAP_ID_LABEL,
                                      IDC_SNAP_OUI,           IDC_SNAP_OUI_LABEL,
                                      IDC_SNAP_PID,           IDC_SNAP_PID_LABEL,
                                      IDC_SNAP_PACKET_SIZE,   IDC_SNAP_PACKET_SIZE_LABEL,
                                      IDC_TCP_CLIENT_OPTIONS, IDC_TCP_SERVER_OPTIONS};

    static void ExpectNetwork(const Sheet& sheet, bool udp)
    {
        EXPECT_EQ(sheet.CheckOf(IDC_NETWORK_TCP), udp ? BST_UNCHECKED : BST_CHECKED);
        EXPECT_EQ(sheet.CheckOf(IDC_NETWORK_UDP), udp ? BST_CHECKED : BST_UNCHECKED);
        for (const int id : ForTCP)
        {
            EXPECT_EQ(sheet.IsEnabled(id), !udp) << id;
        }
        for (const int id : ForUDP)
        {
            EXPECT_EQ(sheet.IsEnabled(id), udp) << id;
        }
        for (const int id : ForBoth)
        {
            EXPECT_TRUE(sheet.IsEnabled(id)) << id;
        }
    }

    static void ExpectMaxBytes(const Sheet& sheet, bool enabled)
    {
        EXPECT_EQ(sheet.IsEnabled(IDC_MAX_BYTES_TO_LOG), enabled);
        EXPECT_EQ(sheet.IsEnabled(IDC_MAX_BYTES_TO_LOG_LABEL), enabled);
    }

    // With those of the Advanced TCP Settings dialog.
    static Values Joined(Values values, const Values& advanced)
    {
        values.insert(advanced.begin(), advanced.end());
        return values;
    }

    static Values Defaults()
    {
        return Joined({{_T("NetworkType"), Sz(_T("TCP/IP"))},
                       {_T("NetworkLevelLog"), Dword(0)},
                       {_T("MaxBytesToLog"), Dword(100)},
                       {_T("DefaultIPAddressTCPClient"), Sz(_T(""))},
                       {_T("DefaultIPAddressUDP"), Sz(_T(""))},
                       {_T("DefaultPortNumberUDP"), Dword(9001)},
                       {_T("MACAddr"), Sz(_T(""))},
                       {_T("SnapIdOUI"), Dword(0x506F9A)},
                       {_T("SnapIdPID"), Dword(0x1500)},
                       {_T("MaxPacketSizeTCP"), Dword(65535)},
                       {_T("MaxPacketSizeUDP"), Dword(65507)},
                       {_T("MaxPacketSizeSNAP"), Dword(1492)}},
                      AdvancedTCPValues(0, 0, 0, 0, 1, 1));
    }

    static std::map<int, Text> TextsOf(const Sheet& sheet)
    {
        std::map<int, Text> texts;
        for (const int id : {IDC_MAX_BYTES_TO_LOG, IDC_TCP_CLIENT_ADDRESS, IDC_TCP_PACKET_SIZE,
                             IDC_UDP_ADDRESS, IDC_UDP_PORT, IDC_UDP_PACKET_SIZE, IDC_MAC_ADDRESS,
                             IDC_SNAP_OUI, IDC_SNAP_PID, IDC_SNAP_PACKET_SIZE})
        {
            texts[id] = sheet.TextOf(id);
        }
        return texts;
    }
};
}  // namespace

TEST_F(MediaTest, ShowsDefaultsAndStoresTheWholeTree)
{
    RunOnTab(tabs::Media,
             [](Sheet& sheet)
             {
                 EXPECT_EQ(TextsOf(sheet), (std::map<int, Text>{{IDC_MAX_BYTES_TO_LOG, _T("100")},
                                                                {IDC_TCP_CLIENT_ADDRESS, _T("")},
                                                                {IDC_TCP_PACKET_SIZE, _T("65535")},
                                                                {IDC_UDP_ADDRESS, _T("")},
                                                                {IDC_UDP_PORT, _T("9001")},
                                                                {IDC_UDP_PACKET_SIZE, _T("65507")},
                                                                {IDC_MAC_ADDRESS, _T("")},
                                                                {IDC_SNAP_OUI, _T("506F9A")},
                                                                {IDC_SNAP_PID, _T("1500")},
                                                                {IDC_SNAP_PACKET_SIZE, _T("1492")}}));
                 EXPECT_EQ(sheet.CheckOf(IDC_NETWORK_LOG), BST_UNCHECKED);
                 ExpectNetwork(sheet, false);
                 ExpectMaxBytes(sheet, false);
                 for (const int id :
                      {IDC_USE_UDP_FOR_ISOCH, IDC_ISOCH_LABEL, IDC_ISOCH, IDC_MAX_ISOCH_LABEL, IDC_MAX_ISOCH})
                 {
                     EXPECT_FALSE(sheet.IsShown(id)) << id;
                     EXPECT_FALSE(sheet.IsEnabled(id)) << id;
                 }
                 EXPECT_EQ(
                     TipsOf(sheet.Page()),
                     (std::map<int, Text>{
                         {IDC_TCP_CLIENT_PORTS,
                          _T("Select the ports with which you would like to connect to the MAUSB host, when ")
                          _T("acting as a TCP client. Also select which packet types you wish to receive on ")
                          _T("each port.")},
                         {IDC_TCP_SERVER_PORTS,
                          _T("Select the ports to listen on when acting as a TCP server. Also select which ")
                          _T("packet types you wish to receive on each port.")}}));
                 EXPECT_FALSE(KeyExists(keys::Kauri));
                 EXPECT_TRUE(sheet.CanApply());
                 sheet.Apply();
                 EXPECT_FALSE(sheet.CanApply());
             });
    const Values port = {{_T("PacketType"), Dword(0xFFFFFFFF)}};
    EXPECT_EQ(StoredTree(keys::Kauri), (Tree{{keys::Kauri, Defaults()},
                                             {keys::ClientPorts, {}},
                                             {keys::ClientPorts + _T("\\9001"), port},
                                             {keys::ServerPorts, {}},
                                             {keys::ServerPorts + _T("\\9001"), port}}));
}

TEST_F(MediaTest, ShowsAndRewritesWhatIsStored)
{
    const Values stored = Joined({{_T("NetworkType"), Sz(_T("UDP/IP"))},
                                  {_T("NetworkLevelLog"), Dword(1)},
                                  {_T("MaxBytesToLog"), Dword(0)},
                                  {_T("DefaultIPAddressTCPClient"), Sz(_T("no address"))},
                                  {_T("DefaultIPAddressUDP"), Sz(_T("10.0.0.300 "))},
                                  {_T("DefaultPortNumberUDP"), Dword(70000)},
                                  {_T("MACAddr"), Sz(_T("zz-zz"))},
                                  {_T("SnapIdOUI"), Dword(0)},
                                  {_T("SnapIdPID"), Dword(0x7FFFFFFF)},
                                  {_T("MaxPacketSizeTCP"), Dword(0)},
                                  {_T("MaxPacketSizeUDP"), Dword(0x80000000)},
                                  {_T("MaxPacketSizeSNAP"), Dword(0xFFFFFFFF)},
                                  // Of the other pages.
                                  {_T("RootHubUUID"), Binary({1})},
                                  {_T("aBulkTransferRetries"), Dword(77)}},
                                 AdvancedTCPValues(0xFFFFFFFF, 1, 0x80000000, 5, 0, 9));
    const Tree before = {{keys::Kauri, stored},
                         {keys::ClientPorts, {}},
                         {keys::ClientPorts + _T("\\70000"), {{_T("PacketType"), Dword(9)}}},
                         {keys::ClientPorts + _T("\\1"), {{_T("PacketType"), Dword(2)}}},
                         {keys::ClientPorts + _T("\\2"), {{_T("PacketType"), Dword(2)}}},
                         {keys::ClientPorts + _T("\\3"), {{_T("PacketType"), Dword(0)}}},
                         {keys::ClientPorts + _T("\\4"), {{_T("PacketType"), Dword(1)}}},
                         {keys::ServerPorts, {}},
                         {keys::ServerPorts + _T("\\7"), {{_T("PacketType"), Dword(1)}}}};
    for (const auto& [key, values] : before)
    {
        Store(key, values);
    }
    RunOnTab(tabs::Media,
             [](Sheet& sheet)
             {
                 EXPECT_EQ(TextsOf(sheet), (std::map<int, Text>{{IDC_MAX_BYTES_TO_LOG, _T("0")},
                                                                {IDC_TCP_CLIENT_ADDRESS, _T("no address")},
                                                                {IDC_TCP_PACKET_SIZE, _T("0")},
                                                                {IDC_UDP_ADDRESS, _T("10.0.0.300 ")},
                                                                {IDC_UDP_PORT, _T("70000")},
                                                                {IDC_UDP_PACKET_SIZE, _T("-2147483648")},
                                                                {IDC_MAC_ADDRESS, _T("zz-zz")},
                                                                {IDC_SNAP_OUI, _T("0")},
                                                                {IDC_SNAP_PID, _T("7FFFFFFF")},
                                                                {IDC_SNAP_PACKET_SIZE, _T("-1")}}));
                 EXPECT_EQ(sheet.CheckOf(IDC_NETWORK_LOG), BST_CHECKED);
                 ExpectNetwork(sheet, true);
                 ExpectMaxBytes(sheet, true);
                 sheet.Ok();
                 EXPECT_FALSE(sheet.IsOpen());
             });
    EXPECT_EQ(StoredTree(keys::Kauri), before);
}

TEST_F(MediaTest, PageThatWasNeverOpenedLeavesItsValuesAlone)
{
    StoreValue(_T("NetworkType"), Sz(_T("neither")));
    Store(keys::ClientPorts + _T("\\none"), _T("PacketType"), Dword(1));
    const Tree before = StoredTree(keys::Kauri);
    RunEditor([](Sheet& sheet) { sheet.Ok(); });
    EXPECT_EQ(StoredTree(keys::Kauri), before);
}

TEST_F(MediaTest, OnlyTheExactTextSelectsUDP)
{
    const std::pair<StoredValue, bool> cases[] = {
        {Sz(_T("udp/ip")), false},
        {Sz(_T("UDP/IP ")), false},
        {Sz(_T("UDP")), false},
        {Sz(_T("")), false},
        {Dword(1), false},
        {Sz(_T("TCP/IP")), false},
        // Neither terminator nor type matters.
        {Binary({'U', 0, 'D', 0, 'P', 0, '/', 0, 'I', 0, 'P', 0}), true},
        {Sz(_T("UDP/IP")), true}};
    for (const auto& [stored, udp] : cases)
    {
        SCOPED_TRACE(testing::PrintToString(stored));
        StoreValue(_T("NetworkType"), stored);
        RunOnTab(tabs::Media,
                 [udp = udp](Sheet& sheet)
                 {
                     ExpectNetwork(sheet, udp);
                     sheet.Ok();
                 });
        EXPECT_EQ(StoredUnder(_T("NetworkType")), Sz(udp ? _T("UDP/IP") : _T("TCP/IP")));
    }
}

TEST_F(MediaTest, NetworkTypeDecidesWhichControlsAreLive)
{
    RunOnTab(tabs::Media,
             [](Sheet& sheet)
             {
                 sheet.Retype(IDC_TCP_CLIENT_ADDRESS, _T("10.0.0.1"));
                 sheet.Apply();
                 sheet.Click(IDC_NETWORK_UDP);
                 ExpectNetwork(sheet, true);
                 EXPECT_TRUE(sheet.CanApply());
                 sheet.Click(IDC_NETWORK_UDP);
                 EXPECT_FALSE(sheet.CanApply()) << "nothing changed by this click";
                 sheet.Click(IDC_NETWORK_TCP);
                 ExpectNetwork(sheet, false);
                 EXPECT_TRUE(sheet.CanApply());
                 sheet.Click(IDC_NETWORK_UDP);
                 sheet.Apply();
                 EXPECT_EQ(StoredUnder(_T("NetworkType")), Sz(_T("UDP/IP")));
                 EXPECT_EQ(StoredUnder(_T("DefaultIPAddressTCPClient")), Sz(_T("10.0.0.1")));
                 sheet.Click(IDC_NETWORK_TCP);
                 sheet.Ok();
             });
    EXPECT_EQ(StoredUnder(_T("NetworkType")), Sz(_T("TCP/IP")));
}

TEST_F(MediaTest, LoggingDecidesWhetherItsLimitIsLive)
{
    RunOnTab(tabs::Media,
             [](Sheet& sheet)
             {
                 sheet.Click(IDC_NETWORK_LOG);
                 EXPECT_TRUE(sheet.CanApply());
                 ExpectMaxBytes(sheet, true);
                 sheet.Retype(IDC_MAX_BYTES_TO_LOG, _T("4096"));
                 sheet.Click(IDC_NETWORK_LOG);
                 ExpectMaxBytes(sheet, false);
                 EXPECT_EQ(sheet.TextOf(IDC_MAX_BYTES_TO_LOG), _T("4096"));
                 sheet.Ok();
             });
    EXPECT_EQ(StoredUnder(_T("NetworkLevelLog")), Dword(0));
    EXPECT_EQ(StoredUnder(_T("MaxBytesToLog")), Dword(4096));

    // What a check box does not show is gone with the next save.
    const std::pair<DWORD, DWORD> flags[] = {{2, 1}, {3, 0}, {0xFFFFFFFF, 0}};
    for (const auto& [stored, shown] : flags)
    {
        StoreValue(_T("NetworkLevelLog"), Dword(stored));
        RunOnTab(tabs::Media,
                 [shown = shown](Sheet& sheet)
                 {
                     ExpectMaxBytes(sheet, shown != 0);
                     sheet.Ok();
                 });
        EXPECT_EQ(StoredUnder(_T("NetworkLevelLog")), Dword(shown)) << stored;
    }
}

TEST_F(MediaTest, SnapIdentifiersComeUpAsLoadedAndTheLastOneMarks)
{
    struct Case
    {
        DWORD oui;
        DWORD pid;
        bool marked;
        Text ouiText;
        Text pidText;
    };
    const Case cases[] = {{0, 0, false, _T("0"), _T("0")},
                          {0x506F9A, 0, false, _T("506F9A"), _T("0")},
                          {0, 1, true, _T("0"), _T("1")},
                          {0xabcdef, 0x1500, true, _T("ABCDEF"), _T("1500")},
                          {0x80000000, 0xFFFFFFFF, true, _T("FFFFFFFF80000000"), _T("FFFFFFFFFFFFFFFF")}};
    for (const Case& c : cases)
    {
        SCOPED_TRACE(testing::Message() << c.oui << ", " << c.pid);
        StoreValue(_T("SnapIdOUI"), Dword(c.oui));
        StoreValue(_T("SnapIdPID"), Dword(c.pid));
        RunOnTab(tabs::Media,
                 [&c](Sheet& sheet)
                 {
                     EXPECT_EQ(sheet.TextOf(IDC_SNAP_OUI), c.ouiText);
                     EXPECT_EQ(sheet.TextOf(IDC_SNAP_PID), c.pidText);
                     EXPECT_EQ(sheet.CanApply(), c.marked);
                     // The members are back at the loaded numbers: the same text again changes nothing.
                     sheet.Paste(IDC_SNAP_OUI, c.ouiText);
                     EXPECT_FALSE(sheet.CanApply());
                     sheet.Paste(IDC_SNAP_PID, c.pidText);
                     EXPECT_FALSE(sheet.CanApply());
                     sheet.Ok();
                 });
        EXPECT_EQ(StoredUnder(_T("SnapIdOUI")), Dword(c.oui));
        EXPECT_EQ(StoredUnder(_T("SnapIdPID")), Dword(c.pid));
    }
}

TEST_F(MediaTest, SnapEditsTellOfEachTextTheyGetWhileThePageComesUp)
{
    // In turn: "0" in the OUI's edit while the other is empty, which takes both members to 0; "0" in the
    // PID's; then what was loaded, in each.
    const std::pair<DWORD, PageEvents> cases[] = {{0x1500, {"marked", "unmarked", "marked", "marked"}},
                                                  {0, {"marked", "unmarked", "marked", "unmarked"}}};
    for (const auto& [pid, marks] : cases)
    {
        StoreValue(_T("SnapIdPID"), Dword(pid));
        RunEditor(
            [marks = marks](Sheet& sheet)
            {
                EventRecord record(sheet.Page());
                EXPECT_TRUE(sheet.Select(tabs::Media));
                PageEvents events = record.Take();
                ASSERT_GE(events.size(), marks.size());
                EXPECT_EQ(PageEvents(events.begin(), events.begin() + 4), marks);
                EXPECT_EQ(events.back(), marks.back());
            });
    }
}

TEST_F(MediaTest, TabKeyPassesWhatIsLive)
{
    RunOnTab(tabs::Media,
             [](Sheet& sheet)
             {
                 ExpectTabOrder(sheet,
                                {IDC_NETWORK_TCP, IDC_NETWORK_LOG, IDC_TCP_PACKET_SIZE, IDC_ADVANCED_TCP,
                                 IDC_TCP_CLIENT_ADDRESS, IDC_MAC_ADDRESS, IDC_SNAP_OUI, IDC_SNAP_PID,
                                 IDC_SNAP_PACKET_SIZE, IDC_TCP_CLIENT_PORTS, IDC_TCP_SERVER_PORTS, IDOK});
                 sheet.Click(IDC_NETWORK_LOG);
                 sheet.Click(IDC_NETWORK_UDP);
                 ExpectTabOrder(sheet, {IDC_NETWORK_UDP, IDC_NETWORK_LOG, IDC_MAX_BYTES_TO_LOG,
                                        IDC_UDP_ADDRESS, IDC_UDP_PORT, IDC_UDP_PACKET_SIZE, IDC_MAC_ADDRESS,
                                        IDC_SNAP_OUI, IDC_SNAP_PID, IDC_SNAP_PACKET_SIZE, IDOK});
             });
}

TEST_F(MediaTest, SnapIdentifierTakesHexadecimalDigitsAndAnythingPasted)
{
    struct Case
    {
        Text keys;
        Text text;
        DWORD stored;
        bool pasted = false;
    };
    const Case cases[] = {{_T("g1 -fZ0x"), _T("1f0"), 0x1F0},
                          {_T("80000000"), _T("80000000"), 0x80000000},
                          {_T("FFFFFFFF80000001"), _T("FFFFFFFF80000001"), 0x80000001},
                          {_T("123456789"), _T("123456789"), 0x23456789},
                          {_T("\b"), _T(""), 0},
                          // The prefix counts as a digit of 33 here.
                          {_T("0x1F"), _T("0x1F"), 33 * 256 + 0x1F, true},
                          {_T("1z"), _T("1z"), 16 + 35, true},
                          {_T(" 1"), _T(" 1"), 0xFFFFFFF1, true},
                          // Longer than what the page's exchange looks at.
                          {Text(63, _T('0')) + _T("1"), Text(63, _T('0')) + _T("1"), 1, true}};
    for (const Case& c : cases)
    {
        SCOPED_TRACE(Printable(c.keys));
        RunOnTab(tabs::Media,
                 [&c](Sheet& sheet)
                 {
                     for (const int id : {IDC_SNAP_OUI, IDC_SNAP_PID})
                     {
                         c.pasted ? sheet.Paste(id, c.keys) : sheet.Retype(id, c.keys);
                         EXPECT_EQ(sheet.TextOf(id), c.text);
                     }
                     sheet.Ok();
                     EXPECT_FALSE(sheet.IsOpen());
                 });
        EXPECT_EQ(StoredUnder(_T("SnapIdOUI")), Dword(c.stored));
        EXPECT_EQ(StoredUnder(_T("SnapIdPID")), Dword(c.stored));
    }
}

TEST_F(MediaTest, SnapIdentifierThatIsNoNumberHoldsThePageWithoutAPrompt)
{
    RunOnTab(tabs::Media,
             [](Sheet& sheet)
             {
                 sheet.Paste(IDC_SNAP_OUI, _T("zz"));
                 EXPECT_FALSE(sheet.CanApply());
                 sheet.Ok();
                 EXPECT_TRUE(sheet.IsOpen());
                 EXPECT_FALSE(sheet.Select(tabs::General));
                 EXPECT_EQ(GetFocus(), sheet.Control(IDC_SNAP_OUI));
                 // What the exchange reaches before it is taken, what lies behind it is not.
                 sheet.Retype(IDC_MAC_ADDRESS, _T("a"));
                 EXPECT_TRUE(sheet.CanApply());
                 sheet.Retype(IDC_SNAP_PACKET_SIZE, _T("7"));
                 EXPECT_FALSE(sheet.CanApply());
                 sheet.Retype(IDC_SNAP_OUI, _T("A"));
                 EXPECT_TRUE(sheet.CanApply());
                 sheet.Ok();
             });
    EXPECT_EQ(StoredUnder(_T("SnapIdOUI")), Dword(10));
    EXPECT_EQ(StoredUnder(_T("MaxPacketSizeSNAP")), Dword(7));
}

TEST_F(MediaTest, IdentifierOfSixteenDigitsStandsForItsLow32Bits)
{
    StoreValue(_T("SnapIdPID"), Dword(0x80001234));
    RunOnTab(tabs::Media,
             [](Sheet& sheet)
             {
                 EXPECT_EQ(sheet.TextOf(IDC_SNAP_PID), _T("FFFFFFFF80001234"));
                 sheet.Paste(IDC_SNAP_PID, _T("80001234"));
                 EXPECT_FALSE(sheet.CanApply()) << "the same number";
                 sheet.Paste(IDC_SNAP_PID, _T("FFFFFFFF80001235"));
                 EXPECT_TRUE(sheet.CanApply());
                 sheet.Apply();
                 EXPECT_EQ(StoredUnder(_T("SnapIdPID")), Dword(0x80001235));
                 sheet.Type(IDC_SNAP_PID, _T("\b"));
                 EXPECT_TRUE(sheet.CanApply());
             });
}

TEST_F(MediaTest, EachEditMarksThePageByItsOwnMember)
{
    const struct
    {
        LPCTSTR name;
        int id;
        bool number;
        bool udp;
    } edits[] = {{_T("DefaultIPAddressTCPClient"), IDC_TCP_CLIENT_ADDRESS, false, false},
                 {_T("MaxPacketSizeTCP"), IDC_TCP_PACKET_SIZE, true, false},
                 {_T("DefaultIPAddressUDP"), IDC_UDP_ADDRESS, false, true},
                 {_T("DefaultPortNumberUDP"), IDC_UDP_PORT, true, true},
                 {_T("MaxPacketSizeUDP"), IDC_UDP_PACKET_SIZE, true, true},
                 {_T("MACAddr"), IDC_MAC_ADDRESS, false, true},
                 {_T("MaxPacketSizeSNAP"), IDC_SNAP_PACKET_SIZE, true, true},
                 {_T("MaxBytesToLog"), IDC_MAX_BYTES_TO_LOG, true, true}};
    RunOnTab(tabs::Media,
             [&edits](Sheet& sheet)
             {
                 sheet.Click(IDC_NETWORK_LOG);
                 for (const auto& edit : edits)
                 {
                     SCOPED_TRACE(Printable(edit.name));
                     sheet.Click(edit.udp ? IDC_NETWORK_UDP : IDC_NETWORK_TCP);
                     sheet.Retype(edit.id, edit.number ? _T("1") : _T("x"));
                     EXPECT_TRUE(sheet.CanApply());
                     sheet.Apply();
                     EXPECT_EQ(StoredUnder(edit.name), edit.number ? Dword(1) : Sz(_T("x")));
                     // A leading zero leaves a number what it was, and takes away even another's mark.
                     sheet.Click(IDC_NETWORK_LOG);
                     sheet.Click(IDC_NETWORK_LOG);
                     sheet.TypeInFront(edit.id, _T("0"));
                     EXPECT_EQ(sheet.TextOf(edit.id), edit.number ? _T("01") : _T("0x"));
                     EXPECT_EQ(sheet.CanApply(), !edit.number);
                 }
             });
}

TEST_F(MediaTest, EmptiedNumberPromptsAtOnceAndHoldsThePage)
{
    for (const int id : {IDC_TCP_PACKET_SIZE, IDC_SNAP_PACKET_SIZE})
    {
        ClearSettings();
        InstallTools({KauriQB});
        int prompts = 0;
        RunOnTab(tabs::Media,
                 [id, &prompts](Sheet& sheet)
                 {
                     ExpectPrompt(&prompts);
                     sheet.Empty(id);
                     EXPECT_EQ(prompts, 1);
                     EXPECT_FALSE(sheet.CanApply());
                     ExpectPrompt(&prompts);
                     EXPECT_FALSE(sheet.Select(tabs::General));
                     EXPECT_EQ(prompts, 2);
                     EXPECT_EQ(GetFocus(), sheet.Control(id));
                     // Too much for 32 bits is no number either.
                     sheet.Type(id, _T("2147483647"));
                     ExpectPrompt(&prompts);
                     sheet.Paste(id, _T("2147483648"));
                     EXPECT_EQ(prompts, 3);
                     EXPECT_FALSE(KeyExists(keys::Kauri));
                     sheet.Retype(id, _T("65"));
                     sheet.Ok();
                 });
        EXPECT_EQ(StoredUnder(id == IDC_TCP_PACKET_SIZE ? _T("MaxPacketSizeTCP") : _T("MaxPacketSizeSNAP")),
                  Dword(65));
    }
}

TEST_F(MediaTest, AnExchangeTakesWhatStandsBeforeTheTextItFailsOn)
{
    struct Edit
    {
        int id;
        LPCTSTR unreadable;  // null: any text is taken
        bool prompts;
    };
    const std::vector<Edit> exchanged = {{IDC_TCP_CLIENT_ADDRESS, nullptr, false},
                                         {IDC_MAC_ADDRESS, nullptr, false},
                                         {IDC_MAX_BYTES_TO_LOG, _T(""), true},
                                         {IDC_UDP_ADDRESS, nullptr, false},
                                         {IDC_UDP_PORT, _T(""), true},
                                         {IDC_SNAP_OUI, _T("z"), false},
                                         {IDC_SNAP_PID, _T("z"), false},
                                         {IDC_TCP_PACKET_SIZE, _T(""), true},
                                         {IDC_UDP_PACKET_SIZE, _T(""), true},
                                         {IDC_SNAP_PACKET_SIZE, _T(""), true}};
    for (size_t failing = 0; failing < exchanged.size(); ++failing)
    {
        const Edit& bad = exchanged[failing];
        if (bad.unreadable == nullptr)
        {
            continue;
        }
        SCOPED_TRACE(bad.id);
        RunOnTab(tabs::Media,
                 [&](Sheet& sheet)
                 {
                     const auto change = [&](int id, LPCTSTR text)
                     {
                         int prompts = 0;
                         if (bad.prompts)
                         {
                             ExpectPrompt(&prompts);
                         }
                         SetWindowTextW(sheet.Control(id), text);
                         EXPECT_EQ(prompts, bad.prompts ? 1 : 0) << id;
                         return sheet.CanApply();
                     };
                     EXPECT_FALSE(change(bad.id, bad.unreadable));
                     for (size_t other = 0; other < exchanged.size(); ++other)
                     {
                         if (other != failing)
                         {
                             EXPECT_EQ(change(exchanged[other].id, _T("7")), other < failing)
                                 << exchanged[other].id;
                         }
                     }
                 });
    }
}

TEST_F(MediaTest, PortButtonsEditACopyOfTheirTable)
{
    struct Case
    {
        int button;
        Text title;
        Text table;
        Text otherTable;
    };
    for (const Case& c :
         {Case{IDC_TCP_CLIENT_PORTS, titles::ClientPorts, keys::ClientPorts, keys::ServerPorts},
          Case{IDC_TCP_SERVER_PORTS, titles::ServerPorts, keys::ServerPorts, keys::ClientPorts}})
    {
        SCOPED_TRACE(Printable(c.title));
        ClearSettings();
        InstallTools({KauriQB});
        for (const LPCTSTR port : {_T("1"), _T("2"), _T("3"), _T("4"), _T("5")})
        {
            Store(c.table + _T("\\") + port, _T("PacketType"), Dword(0));
        }
        const auto ports = [&c] { return StoredSubkeys(c.table); };
        const auto open = [&c](const Sheet& sheet, const std::function<void(Form&)>& script)
        {
            WhenOpened(c.title, script);
            sheet.Click(c.button);
        };
        RunOnTab(tabs::Media,
                 [&](Sheet& sheet)
                 {
                     sheet.Apply();
                     open(sheet,
                          [](Form& form)
                          {
                              EXPECT_EQ(form.TextOf(IDC_PORT_EDIT_3), _T("4"));
                              form.Retype(IDC_PORT_EDIT_0, _T("81"));
                              form.Click(IDCANCEL);
                          });
                     EXPECT_FALSE(sheet.CanApply());
                     sheet.Click(IDC_NETWORK_LOG);
                     sheet.Apply();
                     EXPECT_EQ(ports().size(), 5U) << "cancelled: all five as they were";
                     // Confirmed with nothing changed: marked, and cut to what the dialog shows.
                     open(sheet, [](Form& form) { form.Click(IDOK); });
                     EXPECT_TRUE(sheet.CanApply());
                     EXPECT_EQ(ports().size(), 5U) << "in memory only";
                     sheet.Apply();
                     EXPECT_EQ(ports(), (std::vector<Text>{_T("1"), _T("2"), _T("3"), _T("4")}));
                     open(sheet,
                          [](Form& form)
                          {
                              form.Empty(IDC_PORT_EDIT_1);
                              form.Pick(IDC_PORT_TYPE_2, 3);
                              form.Click(IDOK);
                          });
                     open(sheet,
                          [](Form& form)
                          {
                              EXPECT_EQ(form.TextOf(IDC_PORT_EDIT_1), _T(""))
                                  << "the empty row keeps its place";
                              EXPECT_EQ(form.TextOf(IDC_PORT_EDIT_2), _T("3"));
                          });
                     sheet.Apply();
                     EXPECT_EQ(ports(), (std::vector<Text>{_T("1"), _T("3"), _T("4")}));
                     EXPECT_EQ(Stored(c.table + _T("\\3"), _T("PacketType")), Dword(2));
                     // Lost with the sheet.
                     open(sheet,
                          [](Form& form)
                          {
                              form.Retype(IDC_PORT_EDIT_0, _T("99"));
                              form.Click(IDOK);
                          });
                     sheet.Cancel();
                 });
        EXPECT_EQ(ports(), (std::vector<Text>{_T("1"), _T("3"), _T("4")}));
        EXPECT_EQ(StoredSubkeys(c.otherTable), std::vector<Text>{_T("9001")});
    }
}

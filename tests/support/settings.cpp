#include "support/settings.h"

#include <algorithm>

const std::vector<Text> AllTabs = {tabs::General,  tabs::Drivers, tabs::Chapter9, tabs::Waivers,      tabs::Xhci,
                                   tabs::Identity, tabs::Media,   tabs::Protocol, tabs::HostUnderTest};

namespace {
using enum Setting::Kind;

const Tools Ehci = {AlderQB, ElmQB, HazelQB};
const Tools Xhci = {BirchQB, FirQB, GinkgoQB};
const Tools XhciStack = {BirchQB, FirQB, GinkgoQB, KauriQB, CedarQB};
const Tools Drivers = {AlderQB, ElmQB, HazelQB, BirchQB, FirQB, GinkgoQB, CedarQB, KauriQB};
const Tools Waivers = {BirchQB, AlderQB, FirQB};
const Tools Kauri = {KauriQB};
const Text PortType = _T("PacketType");

StoredValue D(DWORD number) { return Dword(number); }

StoredValue S(LPCTSTR text) { return Sz(text); }

std::vector<Setting> MakeSettings() {
    const StoredValue id = Binary(std::vector<BYTE>(16, 0x5A));
    // clang-format off
    return {
        {tabs::General, Check, 1006, keys::Bench, _T("CertificationMode"), D(0), D(1), {}},
        {tabs::General, List, 1053, keys::Bench, _T("QBLogVerbosity"), D(3), D(1), {}},
        {tabs::General, Number, 1127, keys::Bench, _T("QBMinimumDisplayUpdateTime"), D(300), D(1250), {}},
        {tabs::Drivers, Check, 1032, keys::TestServices, _T("EnableEhciStackSwitcher"), D(1), D(0), Ehci},
        {tabs::Drivers, Path, 1034, keys::EhciDriver, _T("Path"), S(_T("")), S(_T("C:\\ehci\\")), Ehci},
        {tabs::Drivers, Check, 1036, keys::TestServices, _T("EnableXhciStackSwitcher"), D(1), D(0), XhciStack},
        {tabs::Drivers, Path, 1038, keys::XhciDriver, _T("Path"), S(_T("")), S(_T("x")), XhciStack},
        {tabs::Drivers, Check, 1045, keys::TestServices, _T("EnableUsb4HiStackSwitcher"), D(1), D(0), {CedarQB}},
        {tabs::Drivers, Path, 1053, keys::Usb4Driver, _T("Path"), S(_T("")), S(_T("\\\\usb4\\hi")), {CedarQB}},
        {tabs::Drivers, Check, 1200, keys::TestServices, _T("EnableRvskStackSwitcher"), D(1), D(0), {CedarQB}},
        {tabs::Drivers, Path, 1202, keys::RvskDriver, _T("Path"), S(_T("")), S(_T("D:\\r v s k")), {CedarQB}},
        {tabs::Drivers, Path, 1048, keys::TestServices, _T("FsLsComplianceDeviceFirmware"), S(_T("")), S(_T("F:\\fw\\")), Drivers},
        {tabs::Drivers, Copy, 1048, keys::TestServices, _T("fw"), S(_T("")), S(_T("F:\\fw\\")), Drivers},
        {tabs::Drivers, Path, 1051, keys::TestServices, _T("HSComplianceDeviceDriverPath"), S(_T("")), S(_T("hs")), Drivers},
        {tabs::Chapter9, Check, 1182, keys::Alder, _T("SkipBOSDescriptorLegacyDevicesAlderQB"), D(0), D(1), {AlderQB}},
        {tabs::Chapter9, Check, 1183, keys::Birch, _T("SkipBOSDescriptorLegacyDevicesBirchQB"), D(0), D(1), {BirchQB}},
        {tabs::Waivers, Check, 1024, keys::TestServices, _T("WaiverPortNum"), D(0), D(1), {FirQB}},
        {tabs::Waivers, Check, 1031, keys::TestServices, _T("BT_RemoteWake_Waiver"), D(0), D(1), Waivers},
        {tabs::Xhci, Number, 1002, keys::PortDriver, _T("IMODInterval"), D(160), D(0), Xhci},
        {tabs::Xhci, Number, 1003, keys::TestServices, _T("IntMaxPacketStart"), D(0), D(21), Xhci},
        {tabs::Xhci, Number, 1004, keys::TestServices, _T("IntMaxBurstStart"), D(0), D(22), Xhci},
        {tabs::Xhci, Number, 1005, keys::TestServices, _T("IsochMaxBurstStart"), D(0), D(0x7FFFFFFF), Xhci},
        {tabs::Xhci, Check, 1008, keys::TestServices, _T("IsochSkipRead"), D(0), D(1), Xhci},
        {tabs::Xhci, Check, 1009, keys::TestServices, _T("IsochSkipWrite"), D(0), D(1), Xhci},
        {tabs::Xhci, Check, 1000, keys::TestServices, _T("PromptDuringConnect"), D(0), D(1), Xhci},
        {tabs::Xhci, Check, 1022, keys::TestServices, _T("InterruptSkipIOC"), D(0), D(1), Xhci},
        {tabs::Xhci, Check, 1023, keys::TestServices, _T("InterruptSkipEventData"), D(0), D(1), Xhci},
        {tabs::Xhci, Check, 1020, keys::TestServices, _T("InterruptSkipSG"), D(0), D(1), Xhci},
        {tabs::Xhci, Check, 1021, keys::TestServices, _T("InterruptSkipContiguousBuffer"), D(0), D(1), Xhci},
        {tabs::Xhci, Number, 1012, keys::TestServices, _T("IsochDelayBeforeHSRead"), D(750), D(0xFFFFFFFB), Xhci},
        {tabs::Xhci, Check, 1013, keys::TestServices, _T("StopOnError"), D(0), D(1), Xhci},
        {tabs::Identity, Passed, 1138, keys::Kauri, _T("MAUSBProtocolVersion"), S(_T("MAUSB 1.0a")), S(_T("MAUSB 1.0a")), Kauri},
        {tabs::Identity, Radio, 1123, keys::Kauri, _T("IsochPayloadAlignment"), D(1), D(4), Kauri},
        {tabs::Identity, Passed, 1130, keys::Kauri, _T("RootHubUUID"), id, id, Kauri},
        {tabs::Identity, Check, 1133, keys::Kauri, _T("RefuseSleepRequests"), D(0), D(1), Kauri},
        {tabs::Identity, Check, 1134, keys::Kauri, _T("LinkSleepCapability"), D(0), D(1), Kauri},
        {tabs::Identity, Passed, 1149, keys::Kauri, _T("MaxUSBTransferSize"), D(0), D(0), Kauri},
        {tabs::Identity, Passed, 1150, keys::Kauri, _T("UseDefaultMaxUSBTransferSize"), D(1), D(1), Kauri},
        {tabs::Media, Radio, 1066, keys::Kauri, _T("NetworkType"), S(_T("TCP/IP")), S(_T("UDP/IP")), Kauri},
        {tabs::Media, Check, 1055, keys::Kauri, _T("NetworkLevelLog"), D(0), D(1), Kauri},
        {tabs::Media, Number, 1073, keys::Kauri, _T("MaxBytesToLog"), D(100), D(0), Kauri},
        {tabs::Media, Line, 1057, keys::Kauri, _T("DefaultIPAddressTCPClient"), S(_T("")), S(_T("10.0.0.1")), Kauri},
        {tabs::Media, Line, 1065, keys::Kauri, _T("DefaultIPAddressUDP"), S(_T("")), S(_T("no address")), Kauri},
        {tabs::Media, Number, 1078, keys::Kauri, _T("DefaultPortNumberUDP"), D(9001), D(70000), Kauri},
        {tabs::Media, Line, 1072, keys::Kauri, _T("MACAddr"), S(_T("")), S(_T("00-11-22")), Kauri},
        {tabs::Media, Hex, 1115, keys::Kauri, _T("SnapIdOUI"), D(0x506F9A), D(0xAB), Kauri},
        {tabs::Media, Hex, 1117, keys::Kauri, _T("SnapIdPID"), D(0x1500), D(0xC0FFEE), Kauri},
        {tabs::Media, Number, 1119, keys::Kauri, _T("MaxPacketSizeTCP"), D(65535), D(1), Kauri},
        {tabs::Media, Number, 1120, keys::Kauri, _T("MaxPacketSizeUDP"), D(65507), D(2), Kauri},
        {tabs::Media, Number, 1123, keys::Kauri, _T("MaxPacketSizeSNAP"), D(1492), D(3), Kauri},
        {tabs::Media, Passed, 0, keys::Kauri, _T("AdvancedTCP_SocketSendDelay"), D(0), D(0), Kauri},
        {tabs::Media, Passed, 0, keys::Kauri, _T("AdvancedTCP_SO_SNDBUF"), D(0), D(0), Kauri},
        {tabs::Media, Passed, 0, keys::Kauri, _T("AdvancedTCP_SO_RCVBUF"), D(0), D(0), Kauri},
        {tabs::Media, Passed, 0, keys::Kauri, _T("AdvancedTCP_TCP_NODELAY"), D(0), D(0), Kauri},
        {tabs::Media, Passed, 0, keys::Kauri, _T("AdvancedTCP_Default_SO_SNDBUF"), D(1), D(1), Kauri},
        {tabs::Media, Passed, 0, keys::Kauri, _T("AdvancedTCP_Default_SO_RCVBUF"), D(1), D(1), Kauri},
        {tabs::Media, Passed, 0, keys::ClientPorts + _T("\\9001"), PortType, D(0xFFFFFFFF), D(0xFFFFFFFF), Kauri},
        {tabs::Media, Passed, 0, keys::ServerPorts + _T("\\9001"), PortType, D(0xFFFFFFFF), D(0xFFFFFFFF), Kauri},
        {tabs::Protocol, Number, 1099, keys::Kauri, _T("aManagementResponseTime"), D(5), D(0), Kauri},
        {tabs::Protocol, Number, 1100, keys::Kauri, _T("aTransferResponseTime"), D(10), D(11), Kauri},
        {tabs::Protocol, Number, 1087, keys::Kauri, _T("aDataChannelDelayTCP"), D(100), D(31), Kauri},
        {tabs::Protocol, Number, 1088, keys::Kauri, _T("aManagementChannelDelayTCP"), D(100), D(32), Kauri},
        {tabs::Protocol, Number, 1089, keys::Kauri, _T("aMaxIsochLinkDelayTCP"), D(100), D(33), Kauri},
        {tabs::Protocol, Number, 1090, keys::Kauri, _T("aDataChannelDelayUDP"), D(100), D(34), Kauri},
        {tabs::Protocol, Number, 1091, keys::Kauri, _T("aManagementChannelDelayUDP"), D(100), D(35), Kauri},
        {tabs::Protocol, Number, 1092, keys::Kauri, _T("aMaxIsochLinkDelayUDP"), D(100), D(36), Kauri},
        {tabs::Protocol, Number, 1094, keys::Kauri, _T("aDataChannelDelaySNAP"), D(25), D(37), Kauri},
        {tabs::Protocol, Number, 1095, keys::Kauri, _T("aManagementChannelDelaySNAP"), D(25), D(38), Kauri},
        {tabs::Protocol, Number, 1093, keys::Kauri, _T("aMaxIsochLinkDelaySNAP"), D(25), D(39), Kauri},
        {tabs::Protocol, Number, 1106, keys::Kauri, _T("aBulkTransferRetries"), D(5), D(41), Kauri},
        {tabs::Protocol, Number, 1107, keys::Kauri, _T("aControlTransferRetries"), D(5), D(42), Kauri},
        {tabs::Protocol, Number, 1108, keys::Kauri, _T("aInterruptTransferRetries"), D(3), D(43), Kauri},
        {tabs::Protocol, Number, 1111, keys::Kauri, _T("aManagementRetries"), D(4), D(44), Kauri},
        {tabs::Protocol, Number, 1112, keys::Kauri, _T("aTransferSetupRetries"), D(4), D(45), Kauri},
        {tabs::HostUnderTest, Number, 1160, keys::Kauri, _T("aBulkTransferRetriesHUT"), D(5), D(51), Kauri},
        {tabs::HostUnderTest, Number, 1164, keys::Kauri, _T("aControlTransferRetriesHUT"), D(5), D(52), Kauri},
        {tabs::HostUnderTest, Number, 1168, keys::Kauri, _T("aInterruptTransferRetriesHUT"), D(3), D(53), Kauri},
        {tabs::HostUnderTest, Number, 1162, keys::Kauri, _T("aManagementRetriesHUT"), D(4), D(54), Kauri},
        {tabs::HostUnderTest, Number, 1166, keys::Kauri, _T("aTransferSetupRetriesHUT"), D(4), D(55), Kauri},
        {tabs::HostUnderTest, Check, 1181, keys::Kauri, _T("SendsGetPortBWReq"), D(0), D(1), Kauri},
    };
    // clang-format on
}

DWORD NumberIn(const StoredValue& value) {
    DWORD number = 0;
    std::copy_n(value.data.begin(), sizeof(number), reinterpret_cast<BYTE*>(&number));
    return number;
}

// What an edit shows of a value.
Text TextFor(Setting::Kind kind, const StoredValue& value) {
    if (value.type == REG_SZ) {
        return reinterpret_cast<LPCTSTR>(value.data.data());
    }
    if (kind == Number) {
        return Decimal(static_cast<int>(NumberIn(value)));
    }
    Text digits;
    for (DWORD number = NumberIn(value); number != 0; number /= 16) {
        digits.insert(digits.begin(), _T("0123456789ABCDEF")[number % 16]);
    }
    return digits;
}
// A minus sign alone would be no number: it is typed last. What is out of use keeps what is pasted into it.
void EnterText(const Form& page, int control, const Text& text) {
    if (!page.IsEnabled(control)) {
        page.SetText(control, text);
        return;
    }
    const bool isNegative = text[0] == _T('-');
    page.Retype(control, text.substr(isNegative ? 1 : 0));
    if (isNegative) {
        page.TypeInFront(control, _T("-"));
    }
}
}  // namespace

bool Setting::IsLiveFor(const Tools& installed) const {
    return tools.empty() ||
           std::find_first_of(tools.begin(), tools.end(), installed.begin(), installed.end()) != tools.end();
}

void Setting::ExpectShown(const Form& page, const StoredValue& value) const {
    SCOPED_TRACE(Printable(name));
    switch (kind) {
    case Check:
        EXPECT_EQ(page.CheckOf(control), static_cast<LRESULT>(NumberIn(value)));
        break;
    case List:
        EXPECT_EQ(page.SelectionOf(control), static_cast<LRESULT>(NumberIn(value)));
        break;
    case Radio:
        EXPECT_EQ(page.CheckOf(control), value == initial ? BST_CHECKED : BST_UNCHECKED);
        EXPECT_EQ(page.CheckOf(control + 1), value == initial ? BST_UNCHECKED : BST_CHECKED);
        break;
    case Copy:
    case Passed:
        break;
    default:
        EXPECT_EQ(page.TextOf(control), TextFor(kind, value));
    }
}

void Setting::Enter(const Form& page, const StoredValue& value) const {
    switch (kind) {
    case Check:
        if (page.CheckOf(control) != static_cast<LRESULT>(NumberIn(value))) {
            page.Click(control);
        }
        break;
    case List:
        page.Pick(control, static_cast<int>(NumberIn(value)));
        break;
    case Radio:
        page.Click(value == initial ? control : control + 1);
        break;
    case Copy:
    case Passed:
        break;
    default:
        EnterText(page, control, TextFor(kind, value));
    }
}

const std::vector<Setting>& AllSettings() {
    static const std::vector<Setting> settings = MakeSettings();
    return settings;
}

std::vector<Setting> SettingsOf(const Text& tab) {
    std::vector<Setting> settings;
    std::copy_if(AllSettings().begin(), AllSettings().end(), std::back_inserter(settings),
                 [&tab](const Setting& setting) { return setting.tab == tab; });
    return settings;
}

Tree TreeOf(const std::vector<Setting>& settings, StoredValue Setting::*value) {
    Tree tree;
    for (const Setting& setting : settings) {
        tree[setting.key][setting.name] = setting.*value;
    }
    return tree;
}

void ForEachForm(const std::function<void(const Form&, const Text& name)>& check) {
    InstallTools(AllTools);
    RunEditor([&check](const Sheet& sheet) {
        for (const Text& tab : AllTabs) {
            SCOPED_TRACE(Printable(tab));
            ASSERT_TRUE(sheet.Select(tab));
            check(sheet, tab);
        }
        sheet.Select(tabs::Media);
        for (const auto& [button, title] : {std::pair{1139, titles::AdvancedTCP}, {1190, titles::ClientPorts}}) {
            WithDialog(
                title, [&check, &name = title](const Form& dialog) { check(dialog, name); },
                [&sheet, id = button] { sheet.Click(id); });
        }
    });
}

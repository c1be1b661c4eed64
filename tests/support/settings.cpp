#include "support/settings.h"

#include <algorithm>

const std::vector<Text> AllTabs = {tabs::General, tabs::Drivers,  tabs::Chapter9,
                                   tabs::Waivers, tabs::Xhci,     tabs::Identity,
                                   tabs::Media,   tabs::Protocol, tabs::HostUnderTest};

namespace
{
using enum Setting::Kind;

const Tools Ehci = {AlderQB, ElmQB, HazelQB};
const Tools Xhci = {BirchQB, FirQB, GinkgoQB};
const Tools XhciStack = {BirchQB, FirQB, GinkgoQB, KauriQB, CedarQB};
const Tools Drivers = {AlderQB, ElmQB, HazelQB, BirchQB, FirQB, GinkgoQB, CedarQB, KauriQB};
const Tools Waivers = {BirchQB, AlderQB, FirQB};
const Tools Kauri = {KauriQB};
const Text PortType = _T("PacketType");

std::vector<Setting> MakeSettings()
{
    const StoredValue id = Binary(std::vector<BYTE>(16, 0x5A));
    // clang-format off
    return {
        {tabs::General, Check, 1006, keys::Bench, _T("CertificationMode"), Dword(0), Dword(1), {}},
        {tabs::General, List, 1053, keys::Bench, _T("QBLogVerbosity"), Dword(3), Dword(1), {}},
        {tabs::General, Number, 1127, keys::Bench, _T("QBMinimumDisplayUpdateTime"), Dword(300), Dword(1250), {}},
        {tabs::Drivers, Check, 1032, keys::TestServices, _T("EnableEhciStackSwitcher"), Dword(1), Dword(0), Ehci},
        {tabs::Drivers, Path, 1034, keys::EhciDriver, _T("Path"), Sz({}), Sz(_T("C:\\ehci\\")), Ehci},
        {tabs::Drivers, Check, 1036, keys::TestServices, _T("EnableXhciStackSwitcher"), Dword(1), Dword(0), XhciStack},
        {tabs::Drivers, Path, 1038, keys::XhciDriver, _T("Path"), Sz({}), Sz(_T("x")), XhciStack},
        {tabs::Drivers, Check, 1045, keys::TestServices, _T("EnableUsb4HiStackSwitcher"), Dword(1), Dword(0), {CedarQB}},
        {tabs::Drivers, Path, 1053, keys::Usb4Driver, _T("Path"), Sz({}), Sz(_T("\\\\usb4\\hi")), {CedarQB}},
        {tabs::Drivers, Check, 1200, keys::TestServices, _T("EnableRvskStackSwitcher"), Dword(1), Dword(0), {CedarQB}},
        {tabs::Drivers, Path, 1202, keys::RvskDriver, _T("Path"), Sz({}), Sz(_T("D:\\r v s k")), {CedarQB}},
        {tabs::Drivers, Path, 1048, keys::TestServices, _T("FsLsComplianceDeviceFirmware"), Sz({}), Sz(_T("F:\\fw\\")), Drivers},
        {tabs::Drivers, Copy, 1048, keys::TestServices, _T("fw"), Sz({}), Sz(_T("F:\\fw\\")), Drivers},
        {tabs::Drivers, Path, 1051, keys::TestServices, _T("HSComplianceDeviceDriverPath"), Sz({}), Sz(_T("hs")), Drivers},
        {tabs::Chapter9, Check, 1182, keys::Alder, _T("SkipBOSDescriptorLegacyDevicesAlderQB"), Dword(0), Dword(1), {AlderQB}},
        {tabs::Chapter9, Check, 1183, keys::Birch, _T("SkipBOSDescriptorLegacyDevicesBirchQB"), Dword(0), Dword(1), {BirchQB}},
        {tabs::Waivers, Check, 1024, keys::TestServices, _T("WaiverPortNum"), Dword(0), Dword(1), {FirQB}},
        {tabs::Waivers, Check, 1031, keys::TestServices, _T("BT_RemoteWake_Waiver"), Dword(0), Dword(1), Waivers},
        {tabs::Xhci, Number, 1002, keys::PortDriver, _T("IMODInterval"), Dword(160), Dword(0), Xhci},
        {tabs::Xhci, Number, 1003, keys::TestServices, _T("IntMaxPacketStart"), Dword(0), Dword(21), Xhci},
        {tabs::Xhci, Number, 1004, keys::TestServices, _T("IntMaxBurstStart"), Dword(0), Dword(22), Xhci},
        {tabs::Xhci, Number, 1005, keys::TestServices, _T("IsochMaxBurstStart"), Dword(0), Dword(0x7FFFFFFF), Xhci},
        {tabs::Xhci, Check, 1008, keys::TestServices, _T("IsochSkipRead"), Dword(0), Dword(1), Xhci},
        {tabs::Xhci, Check, 1009, keys::TestServices, _T("IsochSkipWrite"), Dword(0), Dword(1), Xhci},
        {tabs::Xhci, Check, 1000, keys::TestServices, _T("PromptDuringConnect"), Dword(0), Dword(1), Xhci},
        {tabs::Xhci, Check, 1022, keys::TestServices, _T("InterruptSkipIOC"), Dword(0), Dword(1), Xhci},
        {tabs::Xhci, Check, 1023, keys::TestServices, _T("InterruptSkipEventData"), Dword(0), Dword(1), Xhci},
        {tabs::Xhci, Check, 1020, keys::TestServices, _T("InterruptSkipSG"), Dword(0), Dword(1), Xhci},
        {tabs::Xhci, Check, 1021, keys::TestServices, _T("InterruptSkipContiguousBuffer"), Dword(0), Dword(1), Xhci},
        {tabs::Xhci, Number, 1012, keys::TestServices, _T("IsochDelayBeforeHSRead"), Dword(750), Dword(0xFFFFFFFB), Xhci},
        {tabs::Xhci, Check, 1013, keys::TestServices, _T("StopOnError"), Dword(0), Dword(1), Xhci},
        {tabs::Identity, Passed, 1138, keys::Kauri, _T("MAUSBProtocolVersion"), Sz(_T("MAUSB 1.0a")), Sz(_T("MAUSB 1.0a")), Kauri},
        {tabs::Identity, Radio, 1123, keys::Kauri, _T("IsochPayloadAlignment"), Dword(1), Dword(4), Kauri},
        {tabs::Identity, Passed, 1130, keys::Kauri, _T("RootHubUUID"), id, id, Kauri},
        {tabs::Identity, Check, 1133, keys::Kauri, _T("RefuseSleepRequests"), Dword(0), Dword(1), Kauri},
        {tabs::Identity, Check, 1134, keys::Kauri, _T("LinkSleepCapability"), Dword(0), Dword(1), Kauri},
        {tabs::Identity, Passed, 1149, keys::Kauri, _T("MaxUSBTransferSize"), Dword(0), Dword(0), Kauri},
        {tabs::Identity, Passed, 1150, keys::Kauri, _T("UseDefaultMaxUSBTransferSize"), Dword(1), Dword(1), Kauri},
        {tabs::Media, Radio, 1066, keys::Kauri, _T("NetworkType"), Sz(_T("TCP/IP")), Sz(_T("UDP/IP")), Kauri},
        {tabs::Media, Check, 1055, keys::Kauri, _T("NetworkLevelLog"), Dword(0), Dword(1), Kauri},
        {tabs::Media, Number, 1073, keys::Kauri, _T("MaxBytesToLog"), Dword(100), Dword(0), Kauri},
        {tabs::Media, Line, 1057, keys::Kauri, _T("DefaultIPAddressTCPClient"), Sz({}), Sz(_T("10.0.0.1")), Kauri},
        {tabs::Media, Line, 1065, keys::Kauri, _T("DefaultIPAddressUDP"), Sz({}), Sz(_T("no address")), Kauri},
        {tabs::Media, Number, 1078, keys::Kauri, _T("DefaultPortNumberUDP"), Dword(9001), Dword(70000), Kauri},
        {tabs::Media, Line, 1072, keys::Kauri, _T("MACAddr"), Sz({}), Sz(_T("00-11-22")), Kauri},
        {tabs::Media, Hex, 1115, keys::Kauri, _T("SnapIdOUI"), Dword(0x506F9A), Dword(0xAB), Kauri},
        {tabs::Media, Hex, 1117, keys::Kauri, _T("SnapIdPID"), Dword(0x1500), Dword(0xC0FFEE), Kauri},
        {tabs::Media, Number, 1119, keys::Kauri, _T("MaxPacketSizeTCP"), Dword(65535), Dword(1), Kauri},
        {tabs::Media, Number, 1120, keys::Kauri, _T("MaxPacketSizeUDP"), Dword(65507), Dword(2), Kauri},
        {tabs::Media, Number, 1123, keys::Kauri, _T("MaxPacketSizeSNAP"), Dword(1492), Dword(3), Kauri},
        {tabs::Media, Passed, 0, keys::Kauri, _T("AdvancedTCP_SocketSendDelay"), Dword(0), Dword(0), Kauri},
        {tabs::Media, Passed, 0, keys::Kauri, _T("AdvancedTCP_SO_SNDBUF"), Dword(0), Dword(0), Kauri},
        {tabs::Media, Passed, 0, keys::Kauri, _T("AdvancedTCP_SO_RCVBUF"), Dword(0), Dword(0), Kauri},
        {tabs::Media, Passed, 0, keys::Kauri, _T("AdvancedTCP_TCP_NODELAY"), Dword(0), Dword(0), Kauri},
        {tabs::Media, Passed, 0, keys::Kauri, _T("AdvancedTCP_Default_SO_SNDBUF"), Dword(1), Dword(1), Kauri},
        {tabs::Media, Passed, 0, keys::Kauri, _T("AdvancedTCP_Default_SO_RCVBUF"), Dword(1), Dword(1), Kauri},
        {tabs::Media, Passed, 0, keys::ClientPorts + _T("\\9001"), PortType, Dword(0xFFFFFFFF), Dword(0xFFFFFFFF), Kauri},
        {tabs::Media, Passed, 0, keys::ServerPorts + _T("\\9001"), PortType, Dword(0xFFFFFFFF), Dword(0xFFFFFFFF), Kauri},
        {tabs::Protocol, Number, 1099, keys::Kauri, _T("aManagementResponseTime"), Dword(5), Dword(0), Kauri},
        {tabs::Protocol, Number, 1100, keys::Kauri, _T("aTransferResponseTime"), Dword(10), Dword(11), Kauri},
        {tabs::Protocol, Number, 1087, keys::Kauri, _T("aDataChannelDelayTCP"), Dword(100), Dword(31), Kauri},
        {tabs::Protocol, Number, 1088, keys::Kauri, _T("aManagementChannelDelayTCP"), Dword(100), Dword(32), Kauri},
        {tabs::Protocol, Number, 1089, keys::Kauri, _T("aMaxIsochLinkDelayTCP"), Dword(100), Dword(33), Kauri},
        {tabs::Protocol, Number, 1090, keys::Kauri, _T("aDataChannelDelayUDP"), Dword(100), Dword(34), Kauri},
        {tabs::Protocol, Number, 1091, keys::Kauri, _T("aManagementChannelDelayUDP"), Dword(100), Dword(35), Kauri},
        {tabs::Protocol, Number, 1092, keys::Kauri, _T("aMaxIsochLinkDelayUDP"), Dword(100), Dword(36), Kauri},
        {tabs::Protocol, Number, 1094, keys::Kauri, _T("aDataChannelDelaySNAP"), Dword(25), Dword(37), Kauri},
        {tabs::Protocol, Number, 1095, keys::Kauri, _T("aManagementChannelDelaySNAP"), Dword(25), Dword(38), Kauri},
        {tabs::Protocol, Number, 1093, keys::Kauri, _T("aMaxIsochLinkDelaySNAP"), Dword(25), Dword(39), Kauri},
        {tabs::Protocol, Number, 1106, keys::Kauri, _T("aBulkTransferRetries"), Dword(5), Dword(41), Kauri},
        {tabs::Protocol, Number, 1107, keys::Kauri, _T("aControlTransferRetries"), Dword(5), Dword(42), Kauri},
        {tabs::Protocol, Number, 1108, keys::Kauri, _T("aInterruptTransferRetries"), Dword(3), Dword(43), Kauri},
        {tabs::Protocol, Number, 1111, keys::Kauri, _T("aManagementRetries"), Dword(4), Dword(44), Kauri},
        {tabs::Protocol, Number, 1112, keys::Kauri, _T("aTransferSetupRetries"), Dword(4), Dword(45), Kauri},
        {tabs::HostUnderTest, Number, 1160, keys::Kauri, _T("aBulkTransferRetriesHUT"), Dword(5), Dword(51), Kauri},
        {tabs::HostUnderTest, Number, 1164, keys::Kauri, _T("aControlTransferRetriesHUT"), Dword(5), Dword(52), Kauri},
        {tabs::HostUnderTest, Number, 1168, keys::Kauri, _T("aInterruptTransferRetriesHUT"), Dword(3), Dword(53), Kauri},
        {tabs::HostUnderTest, Number, 1162, keys::Kauri, _T("aManagementRetriesHUT"), Dword(4), Dword(54), Kauri},
        {tabs::HostUnderTest, Number, 1166, keys::Kauri, _T("aTransferSetupRetriesHUT"), Dword(4), Dword(55), Kauri},
        {tabs::HostUnderTest, Check, 1181, keys::Kauri, _T("SendsGetPortBWReq"), Dword(0), Dword(1), Kauri},
    };
    // clang-format on
}

DWORD NumberIn(const StoredValue& value)
{
    DWORD number = 0;
    std::copy_n(value.data.begin(), sizeof(number), reinterpret_cast<BYTE*>(&number));
    return number;
}

// What an edit shows of a value.
Text TextFor(Setting::Kind kind, const StoredValue& value)
{
    if (value.type == REG_SZ)
    {
        return reinterpret_cast<LPCTSTR>(value.data.data());
    }
    if (kind == Number)
    {
        return Decimal(static_cast<int>(NumberIn(value)));
    }
    Text digits;
    for (DWORD number = NumberIn(value); number != 0; number /= 16)
    {
        digits.insert(digits.begin(), _T("0123456789ABCDEF")[number % 16]);
    }
    return digits;
}
// A minus sign alone would be no number: it is typed last. What is out of use keeps what is pasted into it.
void EnterText(const Form& page, int control, const Text& text)
{
    if (!page.IsEnabled(control))
    {
        page.SetText(control, text);
        return;
    }
    const bool isNegative = text[0] == _T('-');
    page.Retype(control, text.substr(isNegative ? 1 : 0));
    if (isNegative)
    {
        page.TypeInFront(control, _T("-"));
    }
}
}  // namespace

bool Setting::IsLiveFor(const Tools& installed) const
{
    return tools.empty() ||
           std::find_first_of(tools.begin(), tools.end(), installed.begin(), installed.end()) != tools.end();
}

void Setting::ExpectShown(const Form& page, const StoredValue& value) const
{
    SCOPED_TRACE(Printable(name));
    if (kind == Check)
    {
        EXPECT_EQ(page.CheckOf(control), static_cast<LRESULT>(NumberIn(value)));
    }
    else if (kind == List)
    {
        EXPECT_EQ(page.SelectionOf(control), static_cast<LRESULT>(NumberIn(value)));
    }
    else if (kind == Radio)
    {
        EXPECT_EQ(page.CheckOf(control), value == initial ? BST_CHECKED : BST_UNCHECKED);
        EXPECT_EQ(page.CheckOf(control + 1), value == initial ? BST_UNCHECKED : BST_CHECKED);
    }
    else if (IsChangeable())
    {
        EXPECT_EQ(page.TextOf(control), TextFor(kind, value));
    }
}

void Setting::Enter(const Form& page, const StoredValue& value) const
{
    if (kind == Check)
    {
        if (page.CheckOf(control) != static_cast<LRESULT>(NumberIn(value)))
        {
            page.Click(control);
        }
    }
    else if (kind == List)
    {
        page.Pick(control, static_cast<int>(NumberIn(value)));
    }
    else if (kind == Radio)
    {
        page.Click(value == initial ? control : control + 1);
    }
    else if (IsChangeable())
    {
        EnterText(page, control, TextFor(kind, value));
    }
}

const std::vector<Setting>& AllSettings()
{
    static const std::vector<Setting> settings = MakeSettings();
    return settings;
}

std::vector<Setting> SettingsOf(const Text& tab)
{
    std::vector<Setting> settings = AllSettings();
    std::erase_if(settings, [&tab](const Setting& setting) { return setting.tab != tab; });
    return settings;
}

Tree TreeOf(const std::vector<Setting>& settings, ValueOfSetting value)
{
    Tree tree;
    for (const Setting& setting : settings)
    {
        tree[setting.key][setting.name] = setting.*value;
    }
    return tree;
}

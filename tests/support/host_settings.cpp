#include "support/host_settings.h"

#include <algorithm>
#include <cstring>

namespace
{
DWORD NumberIn(const StoredValue& value)
{
    DWORD number = 0;
    EXPECT_EQ(value.data.size(), sizeof(number));
    std::memcpy(&number, value.data.data(), sizeof(number));
    return number;
}

Text TextIn(const StoredValue& value)
{
    return reinterpret_cast<LPCTSTR>(value.data.data());
}
}  // namespace

StoredValue HostSetting::Initial() const
{
    return kind == Kind::Path ? Sz(_T("")) : Dword(initial);
}

StoredValue HostSetting::Changed() const
{
    const Text number = Decimal(control);
    switch (kind)
    {
    case Kind::Switch:
        return Dword(1 - initial);
    case Kind::Number:
        return Dword(initial + static_cast<DWORD>(control));
    default:
        return Sz((_T("D:\\stacks & more\\") + number).c_str());
    }
}

bool HostSetting::IsLiveFor(const Tools& installed) const
{
    return std::find_first_of(installed.begin(), installed.end(), tools.begin(), tools.end()) !=
           installed.end();
}

void HostSetting::ExpectShown(const Sheet& sheet, const StoredValue& value) const
{
    switch (kind)
    {
    case Kind::Switch:
        EXPECT_EQ(sheet.CheckOf(control), NumberIn(value) != 0 ? BST_CHECKED : BST_UNCHECKED);
        break;
    case Kind::Number:
        EXPECT_EQ(sheet.TextOf(control), Decimal(NumberIn(value)));
        break;
    default:
        EXPECT_EQ(sheet.TextOf(control), TextIn(value));
    }
}

void HostSetting::Change(const Sheet& sheet) const
{
    EXPECT_TRUE(sheet.IsEnabled(control));
    const StoredValue value = Changed();
    switch (kind)
    {
    case Kind::Switch:
        sheet.Click(control);
        break;
    case Kind::Number:
        sheet.Retype(control, Decimal(NumberIn(value)));
        break;
    default:
        sheet.Retype(control, TextIn(value));
    }
}

const std::vector<Text>& HostTabs()
{
    static const std::vector<Text> hostTabs = {tabs::Drivers, tabs::Chapter9, tabs::Waivers, tabs::Xhci};
    return hostTabs;
}

const std::vector<HostSetting>& HostSettings()
{
    using enum HostSetting::Kind;
    static const Tools ehci = {AlderQB, ElmQB, HazelQB};
    static const Tools xhci = {BirchQB, FirQB, GinkgoQB};
    static const Tools xhciStack = {BirchQB, FirQB, GinkgoQB, KauriQB, CedarQB};
    static const Tools usb4 = {CedarQB};
    static const Tools device = {AlderQB, ElmQB, HazelQB, BirchQB, FirQB, GinkgoQB, CedarQB, KauriQB};
    static const Tools waivers = {BirchQB, AlderQB, FirQB};
    static const std::vector<HostSetting> settings = {
        {tabs::Drivers, 1034, Path, keys::EhciDriver, _T("Path"), 0, ehci},
        {tabs::Drivers, 1032, Switch, keys::TestServices, _T("EnableEhciStackSwitcher"), 1, ehci},
        {tabs::Drivers, 1038, Path, keys::XhciDriver, _T("Path"), 0, xhciStack},
        {tabs::Drivers, 1036, Switch, keys::TestServices, _T("EnableXhciStackSwitcher"), 1, xhciStack},
        {tabs::Drivers, 1053, Path, keys::Usb4Driver, _T("Path"), 0, usb4},
        {tabs::Drivers, 1045, Switch, keys::TestServices, _T("EnableUsb4HiStackSwitcher"), 1, usb4},
        {tabs::Drivers, 1202, Path, keys::RvskDriver, _T("Path"), 0, usb4},
        {tabs::Drivers, 1200, Switch, keys::TestServices, _T("EnableRvskStackSwitcher"), 1, usb4},
        {tabs::Drivers, 1048, Path, keys::TestServices, FirmwareName, 0, device},
        {tabs::Drivers, 1051, Path, keys::TestServices, _T("HSComplianceDeviceDriverPath"), 0, device},
        {tabs::Chapter9,
         1182,
         Switch,
         keys::Alder,
         _T("SkipBOSDescriptorLegacyDevicesAlderQB"),
         0,
         {AlderQB}},
        {tabs::Chapter9,
         1183,
         Switch,
         keys::Birch,
         _T("SkipBOSDescriptorLegacyDevicesBirchQB"),
         0,
         {BirchQB}},
        {tabs::Waivers, 1024, Switch, keys::TestServices, _T("WaiverPortNum"), 0, {FirQB}},
        {tabs::Waivers, 1031, Switch, keys::TestServices, _T("BT_RemoteWake_Waiver"), 0, waivers},
        {tabs::Xhci, 1002, Number, keys::PortDriver, _T("IMODInterval"), 160, xhci},
        {tabs::Xhci, 1000, Switch, keys::TestServices, _T("PromptDuringConnect"), 0, xhci},
        {tabs::Xhci, 1003, Number, keys::TestServices, _T("IntMaxPacketStart"), 0, xhci},
        {tabs::Xhci, 1004, Number, keys::TestServices, _T("IntMaxBurstStart"), 0, xhci},
        {tabs::Xhci, 1005, Number, keys::TestServices, _T("IsochMaxBurstStart"), 0, xhci},
        {tabs::Xhci, 1008, Switch, keys::TestServices, _T("IsochSkipRead"), 0, xhci},
        {tabs::Xhci, 1009, Switch, keys::TestServices, _T("IsochSkipWrite"), 0, xhci},
        {tabs::Xhci, 1012, Number, keys::TestServices, _T("IsochDelayBeforeHSRead"), 750, xhci},
        {tabs::Xhci, 1013, Switch, keys::TestServices, _T("StopOnError"), 0, xhci},
        {tabs::Xhci, 1020, Switch, keys::TestServices, _T("InterruptSkipSG"), 0, xhci},
        {tabs::Xhci, 1021, Switch, keys::TestServices, _T("InterruptSkipContiguousBuffer"), 0, xhci},
        {tabs::Xhci, 1022, Switch, keys::TestServices, _T("InterruptSkipIOC"), 0, xhci},
        {tabs::Xhci, 1023, Switch, keys::TestServices, _T("InterruptSkipEventData"), 0, xhci},
    };
    return settings;
}

std::vector<HostSetting> HostSettingsOf(const Text& tab)
{
    std::vector<HostSetting> settings;
    std::copy_if(HostSettings().begin(), HostSettings().end(), std::back_inserter(settings),
                 [&tab](const HostSetting& setting) { return setting.tab == tab; });
    return settings;
}

void StoreHostSetting(const HostSetting& setting, const StoredValue& value)
{
    Store(setting.key, setting.name, value);
    if (setting.name == FirmwareName)
    {
        Store(setting.key, FirmwareCopy, value);
    }
}

Tree StoredByHostPages()
{
    Tree tree = StoredSettings();
    tree.erase(keys::Bench);
    return tree;
}

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

const std::vector<LPCTSTR>& HostTabs()
{
    static const std::vector<LPCTSTR> tabs = {DriversTab, Chapter9Tab, WaiversTab, XhciTab};
    return tabs;
}

const std::vector<HostSetting>& HostSettings()
{
    using enum HostSetting::Kind;
    static const Text portDriver = _T("System\\CurrentControlSet\\SERVICES\\xHCIPort\\Parameters");
    static const Tools ehci = {AlderQB, ElmQB, HazelQB};
    static const Tools xhci = {BirchQB, FirQB, GinkgoQB};
    static const Tools xhciStack = {BirchQB, FirQB, GinkgoQB, KauriQB, CedarQB};
    static const Tools usb4 = {CedarQB};
    static const Tools device = {AlderQB, ElmQB, HazelQB, BirchQB, FirQB, GinkgoQB, CedarQB, KauriQB};
    static const Tools waivers = {BirchQB, AlderQB, FirQB};
    static const std::vector<HostSetting> settings = {
        {DriversTab, 1034, Path, _T("SOFTWARE\\Ostrel\\ehci_driver"), _T("Path"), 0, ehci},
        {DriversTab, 1032, Switch, TestServices, _T("EnableEhciStackSwitcher"), 1, ehci},
        {DriversTab, 1038, Path, _T("SOFTWARE\\Ostrel\\xhci_driver"), _T("Path"), 0, xhciStack},
        {DriversTab, 1036, Switch, TestServices, _T("EnableXhciStackSwitcher"), 1, xhciStack},
        {DriversTab, 1053, Path, _T("SOFTWARE\\Halvane\\Drivers\\usb4hi"), _T("Path"), 0, usb4},
        {DriversTab, 1045, Switch, TestServices, _T("EnableUsb4HiStackSwitcher"), 1, usb4},
        {DriversTab, 1202, Path, _T("SOFTWARE\\Halvane\\Drivers\\rvsk"), _T("Path"), 0, usb4},
        {DriversTab, 1200, Switch, TestServices, _T("EnableRvskStackSwitcher"), 1, usb4},
        {DriversTab, 1048, Path, TestServices, FirmwareName, 0, device},
        {DriversTab, 1051, Path, TestServices, _T("HSComplianceDeviceDriverPath"), 0, device},
        {Chapter9Tab,
         1182,
         Switch,
         _T("SOFTWARE\\Halvane\\AlderQB"),
         _T("SkipBOSDescriptorLegacyDevicesAlderQB"),
         0,
         {AlderQB}},
        {Chapter9Tab,
         1183,
         Switch,
         _T("SOFTWARE\\Halvane\\BirchQB"),
         _T("SkipBOSDescriptorLegacyDevicesBirchQB"),
         0,
         {BirchQB}},
        {WaiversTab, 1024, Switch, TestServices, _T("WaiverPortNum"), 0, {FirQB}},
        {WaiversTab, 1031, Switch, TestServices, _T("BT_RemoteWake_Waiver"), 0, waivers},
        {XhciTab, 1002, Number, portDriver, _T("IMODInterval"), 160, xhci},
        {XhciTab, 1000, Switch, TestServices, _T("PromptDuringConnect"), 0, xhci},
        {XhciTab, 1003, Number, TestServices, _T("IntMaxPacketStart"), 0, xhci},
        {XhciTab, 1004, Number, TestServices, _T("IntMaxBurstStart"), 0, xhci},
        {XhciTab, 1005, Number, TestServices, _T("IsochMaxBurstStart"), 0, xhci},
        {XhciTab, 1008, Switch, TestServices, _T("IsochSkipRead"), 0, xhci},
        {XhciTab, 1009, Switch, TestServices, _T("IsochSkipWrite"), 0, xhci},
        {XhciTab, 1012, Number, TestServices, _T("IsochDelayBeforeHSRead"), 750, xhci},
        {XhciTab, 1013, Switch, TestServices, _T("StopOnError"), 0, xhci},
        {XhciTab, 1020, Switch, TestServices, _T("InterruptSkipSG"), 0, xhci},
        {XhciTab, 1021, Switch, TestServices, _T("InterruptSkipContiguousBuffer"), 0, xhci},
        {XhciTab, 1022, Switch, TestServices, _T("InterruptSkipIOC"), 0, xhci},
        {XhciTab, 1023, Switch, TestServices, _T("InterruptSkipEventData"), 0, xhci},
    };
    return settings;
}

std::vector<HostSetting> HostSettingsOf(LPCTSTR tab)
{
    std::vector<HostSetting> settings;
    std::copy_if(HostSettings().begin(), HostSettings().end(), std::back_inserter(settings),
                 [tab](const HostSetting& setting) { return setting.tab == Text(tab); });
    return settings;
}

void StoreHostSetting(const HostSetting& setting, const StoredValue& value)
{
    Store(setting.key, setting.name.c_str(), value);
    if (setting.name == FirmwareName)
    {
        Store(setting.key, FirmwareCopy, value);
    }
}

Tree StoredByHostPages()
{
    Tree tree = StoredSettings();
    tree.erase(_T("SOFTWARE\\Halvane\\QuorvexBench"));
    return tree;
}

// Drivers & Firmware: the four driver stacks with their switches, and the compliance device's two folders.
#include "support/host_settings.h"

namespace
{
struct Stack
{
    int group;
    int enableSwitcher;
    int label;
    int path;
    int browse;
    ProductId tool;  // needs this one and, but for CedarQB, no other
    Text pathKey;
    LPCTSTR switchName;

    std::vector<int> PathControls() const { return {label, path, browse}; }
};

const std::vector<Stack>& Stacks()
{
    static const std::vector<Stack> stacks = {
        {1041, 1032, 1033, 1034, 1035, HazelQB, keys::EhciDriver, _T("EnableEhciStackSwitcher")},
        {1040, 1036, 1037, 1038, 1039, KauriQB, keys::XhciDriver, _T("EnableXhciStackSwitcher")},
        {1044, 1045, 1046, 1053, 1054, CedarQB, keys::Usb4Driver, _T("EnableUsb4HiStackSwitcher")},
        {1199, 1200, 1201, 1202, 1203, CedarQB, keys::RvskDriver, _T("EnableRvskStackSwitcher")},
    };
    return stacks;
}

void ExpectPathEnabled(const Sheet& sheet, const Stack& stack, bool enabled)
{
    for (const int control : stack.PathControls())
    {
        EXPECT_EQ(sheet.IsEnabled(control), enabled) << control;
    }
}
}  // namespace

using DriversAndFirmwareTest = SettingsTest;

TEST_F(DriversAndFirmwareTest, GroupOfAStackThatNoToolNeedsIsDisabledAsAWhole)
{
    for (const ProductId& tool : {HazelQB, KauriQB, CedarQB})
    {
        SCOPED_TRACE(Printable(tool));
        InstallTools({tool});
        RunOnTab(tabs::Drivers,
                 [&tool](const Sheet& sheet)
                 {
                     for (const Stack& stack : Stacks())
                     {
                         SCOPED_TRACE(stack.group);
                         const bool needed = stack.tool == tool || (tool == CedarQB && stack.tool == KauriQB);
                         EXPECT_EQ(sheet.IsEnabled(stack.group), needed);
                         EXPECT_EQ(sheet.IsEnabled(stack.enableSwitcher), needed);
                         ExpectPathEnabled(sheet, stack, needed);
                     }
                     for (const int deviceControl : {1042, 1047, 1048, 1049, 1043, 1050, 1051, 1052})
                     {
                         EXPECT_TRUE(sheet.IsEnabled(deviceControl)) << deviceControl;
                     }
                 });
    }
}

TEST_F(DriversAndFirmwareTest, SwitchTurnedOffDisablesItsPathAndKeepsIt)
{
    const Text folder = _T("C:\\stack\\");
    InstallTools({HazelQB, CedarQB});
    for (const Stack& stack : Stacks())
    {
        Store(stack.pathKey, _T("Path"), Sz(folder.c_str()));
    }
    for (const Stack& stack : Stacks())
    {
        SCOPED_TRACE(Printable(stack.switchName));
        RunOnTab(tabs::Drivers,
                 [&](const Sheet& sheet)
                 {
                     sheet.Click(stack.enableSwitcher);
                     for (const Stack& other : Stacks())
                     {
                         const bool isOff = sheet.CheckOf(other.enableSwitcher) == BST_UNCHECKED;
                         EXPECT_EQ(isOff, &other <= &stack) << "those of earlier runs, and this";
                         ExpectPathEnabled(sheet, other, !isOff);
                         EXPECT_TRUE(sheet.IsEnabled(other.group));
                         EXPECT_TRUE(sheet.IsEnabled(other.enableSwitcher));
                         EXPECT_EQ(sheet.TextOf(other.path), folder);
                     }
                     sheet.Click(stack.enableSwitcher);
                     ExpectPathEnabled(sheet, stack, true);
                     sheet.Click(stack.enableSwitcher);
                     ExpectPathEnabled(sheet, stack, false);
                     sheet.Ok();
                 });
        EXPECT_EQ(Stored(keys::TestServices, stack.switchName), Dword(0));
        EXPECT_EQ(Stored(stack.pathKey, _T("Path")), Sz(folder.c_str()));
    }
}

TEST_F(DriversAndFirmwareTest, PathsOfAnyTypeAndLengthBecomeText)
{
    const Text longPath = _T("\\\\server\\") + Text(1000, _T('x'));
    InstallTools({CedarQB});
    Store(keys::TestServices, _T("HSComplianceDeviceDriverPath"), {REG_EXPAND_SZ, {'%', 0, 'W', 0, '%', 0}});
    Store(Stacks()[2].pathKey, _T("Path"), Sz(longPath.c_str()));
    Store(Stacks()[3].pathKey, _T("Path"), Dword('R'));
    RunOnTab(tabs::Drivers,
             [&longPath](const Sheet& sheet)
             {
                 EXPECT_EQ(sheet.TextOf(1051), _T("%W%"));
                 EXPECT_EQ(sheet.TextOf(1053), longPath);
                 EXPECT_EQ(sheet.TextOf(1202), _T("R"));
                 SendMessageW(sheet.Control(1053), EM_SETSEL, longPath.size(),
                              static_cast<LPARAM>(longPath.size()));
                 sheet.Type(1053, _T("\\y"));
                 sheet.Ok();
             });
    EXPECT_EQ(Stored(keys::TestServices, _T("HSComplianceDeviceDriverPath")), Sz(_T("%W%")));
    EXPECT_EQ(Stored(Stacks()[2].pathKey, _T("Path")), Sz((longPath + _T("\\y")).c_str()));
    EXPECT_EQ(Stored(Stacks()[3].pathKey, _T("Path")), Sz(_T("R")));
}

// General Settings: the log levels in the list. Drivers & Firmware: which groups are enabled, how
// a switch enables its path, and Browse.
#include "resource.h"
#include "support/scripts.h"

#include <dlgs.h>

#include <cstdlib>

namespace
{
// Changes the environment of the C library, which the program reads.
void AllowDiagnostic(const char* value)
{
    static std::string variable;
    variable = std::string("QB_ALLOW_DIAGNOSTIC_LOGGING=") + value;
    putenv(variable.data());
}

struct Stack
{
    int group;
    int enableSwitcher;
    std::vector<int> path;  // label, edit, button
    ProductId tool;         // needs this stack; all but CedarQB need no other
};

const std::vector<Stack> Stacks = {
    {IDC_EHCI_GROUP, IDC_EHCI_SWITCH, {IDC_EHCI_LABEL, IDC_EHCI_PATH, IDC_EHCI_BROWSE}, HazelQB},
    {IDC_XHCI_GROUP, IDC_XHCI_SWITCH, {IDC_XHCI_LABEL, IDC_XHCI_PATH, IDC_XHCI_BROWSE}, KauriQB},
    {IDC_USB4HI_GROUP, IDC_USB4HI_SWITCH, {IDC_USB4HI_LABEL, IDC_USB4HI_PATH, IDC_USB4HI_BROWSE}, CedarQB},
    {IDC_RVSK_GROUP, IDC_RVSK_SWITCH, {IDC_RVSK_LABEL, IDC_RVSK_PATH, IDC_RVSK_BROWSE}, CedarQB}};

// Every system has this folder, with files in it.
const Text Folder = _T("C:\\windows\\inf\\");

// Opens the system's dialog, checks its initial state, enters the file and closes it by that button.
void Browse(const Sheet& sheet, int button, const Text& file, int answer)
{
    const bool isHex = button == IDC_FIRMWARE_BROWSE;
    WithDialog(_T("Open"), sheet, button, [&](const Form& dialog) {
        EXPECT_EQ(dialog.TextOf(edt1), isHex ? _T("*.hex") : _T("*.inf"));
        const Text type = isHex ? _T("HEX Files (*.hex)") : _T("INF Files (*.inf)");
        EXPECT_EQ(dialog.ItemsOf(cmb1), (std::vector<Text>{type, _T("All Files (*.*)")}));
        EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), sheet.Window());
        dialog.SetText(edt1, file);
        dialog.Click(answer);
    });
}

using GeneralTest = SettingsTest;
using DriversTest = SettingsTest;
}  // namespace

TEST_F(GeneralTest, LogLevelIsLimitedAtLoadToTheLevelsInTheList)
{
    std::vector<Text> levels = {_T("Quiet"),  _T("Minimal"), _T("Low"),
                                _T("Normal"), _T("Verbose"), _T("Diagnostic")};
    // The selected level, -1 for none, is stored.
    const std::tuple<const char*, size_t, DWORD, int> cases[] = {
        {"1", 6, 5, 5}, {"no", 6, 0x7FFFFFFF, 5}, {"false", 6, 0xFFFFFFFF, -1},
        {"", 5, 5, 4},  {"0123", 5, 6, 4},        {"", 5, 0x80000001, -1}};
    for (const auto& [variable, items, stored, shown] : cases)
    {
        AllowDiagnostic(variable);
        Store(keys::Bench, _T("QBLogVerbosity"), Dword(stored));
        levels.resize(items);
        const Editor sheet;
        EXPECT_EQ(sheet.ItemsOf(IDC_LOG_VERBOSITY), levels);
        EXPECT_EQ(sheet.SelectionOf(IDC_LOG_VERBOSITY), shown);
        EXPECT_FALSE(sheet.CanApply());
        sheet.Ok();
        EXPECT_EQ(Stored(keys::Bench, _T("QBLogVerbosity")), Dword(static_cast<DWORD>(shown)));
    }
    AllowDiagnostic("");
}

TEST_F(DriversTest, StackIsEnabledForItsToolsAndItsPathByItsSwitch)
{
    const Text longPath = _T("\\\\server\\") + Text(1000, _T('x'));
    for (const ProductId& tool : {HazelQB, KauriQB, CedarQB})
    {
        SCOPED_TRACE(Printable(tool));
        ClearSettings();
        InstallTools({tool});
        Store(keys::EhciDriver, _T("Path"), Sz(longPath));
        for (const bool isStored : {false, true})
        {
            const Editor sheet(tabs::Drivers);
            for (const Stack& stack : Stacks)
            {
                const bool needed = stack.tool == tool || (tool == CedarQB && stack.tool == KauriQB);
                ExpectEnabled(sheet, {stack.group, stack.enableSwitcher}, needed);
                ExpectEnabled(sheet, stack.path, needed && !isStored);
                sheet.Click(stack.enableSwitcher);
                ExpectEnabled(sheet, stack.path, needed && isStored);
                sheet.Click(stack.enableSwitcher);
                ExpectEnabled(sheet, stack.path, needed && !isStored);
                sheet.Click(stack.enableSwitcher);
            }
            ExpectEnabled(sheet,
                          {IDC_FIRMWARE_GROUP, IDC_FIRMWARE_LABEL, IDC_FIRMWARE_PATH, IDC_FIRMWARE_BROWSE,
                           IDC_DEVICE_DRIVER_GROUP, IDC_DEVICE_DRIVER_LABEL, IDC_DEVICE_DRIVER_PATH,
                           IDC_DEVICE_DRIVER_BROWSE},
                          true);
            sheet.Ok();
            EXPECT_EQ(Stored(keys::EhciDriver, _T("Path")), Sz(longPath)) << "kept in any case";
        }
    }
}

TEST_F(DriversTest, BrowseTakesTheFolderOfTheChosenFileAndMarksNothing)
{
    if (!IsWine())
    {
        GTEST_SKIP() << "No document names the controls of the dialog on Windows.";
    }
    const Editor sheet(tabs::Drivers);
    Browse(sheet, IDC_EHCI_BROWSE, Folder + _T("input.inf"), IDCANCEL);
    EXPECT_EQ(sheet.TextOf(IDC_EHCI_PATH), Text());
    for (const auto& [browse, path] : {std::pair{IDC_EHCI_BROWSE, IDC_EHCI_PATH},
                                       {IDC_XHCI_BROWSE, IDC_XHCI_PATH},
                                       {IDC_USB4HI_BROWSE, IDC_USB4HI_PATH},
                                       {IDC_RVSK_BROWSE, IDC_RVSK_PATH},
                                       {IDC_DEVICE_DRIVER_BROWSE, IDC_DEVICE_DRIVER_PATH},
                                       {IDC_FIRMWARE_BROWSE, IDC_FIRMWARE_PATH}})
    {
        // The dialog adds the extension of a driver's file.
        Browse(sheet, browse, Folder + (browse == IDC_FIRMWARE_BROWSE ? _T("input.inf") : _T("input")), IDOK);
        EXPECT_EQ(sheet.TextOf(path), Folder);
        sheet.SetText(path, path == IDC_EHCI_PATH ? Folder : Text());
    }
    EXPECT_FALSE(sheet.CanApply());
    EXPECT_TRUE(IsWindowEnabled(sheet.Window()));
    sheet.Ok();
    EXPECT_EQ(Stored(keys::EhciDriver, _T("Path")), Sz(Folder));
}

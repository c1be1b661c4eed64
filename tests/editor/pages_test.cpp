// General Settings: the levels of the log that are offered, and Apply. Drivers & Firmware: which groups live,
// what a switch does to its path, and Browse.
#include "support/scripts.h"

#include <dlgs.h>

#include <cstdlib>

namespace
{
constexpr int IdMode = 1006;
constexpr int IdVerbosity = 1053;

// The program asks its C library, which has its own list.
void AllowDiagnostic(const char* value)
{
    static std::string variable;
    variable = std::string("QB_ALLOW_DIAGNOSTIC_LOGGING=") + value;
    putenv(variable.data());
}

using GeneralTest = SettingsTest;

struct Stack
{
    int group;
    int enableSwitcher;
    std::vector<int> pathControls;  // label, edit, button
    ProductId tool;                 // needs this one and, but for CedarQB, no other
};

const std::vector<Stack> Stacks = {{1041, 1032, {1033, 1034, 1035}, HazelQB},
                                   {1040, 1036, {1037, 1038, 1039}, KauriQB},
                                   {1044, 1045, {1046, 1053, 1054}, CedarQB},
                                   {1199, 1200, {1201, 1202, 1203}, CedarQB}};

void ExpectPathEnabled(const Sheet& sheet, const Stack& stack, bool enabled)
{
    for (const int control : stack.pathControls)
    {
        EXPECT_EQ(sheet.IsEnabled(control), enabled) << control;
    }
}

// With files that are there on any system.
const Text Folder = _T("C:\\windows\\inf\\");

// Opens the system's dialog by a Browse button, looks at what it comes up with, and answers it.
void Browse(const Sheet& sheet, int browse, const Text& file, int answer)
{
    const bool isHex = browse == 1049;
    WithDialog(_T("Open"), sheet, browse, [&](const Form& dialog) {
        EXPECT_EQ(dialog.TextOf(edt1), isHex ? _T("*.hex") : _T("*.inf"));
        const Text type = isHex ? _T("HEX Files (*.hex)") : _T("INF Files (*.inf)");
        EXPECT_EQ(dialog.ItemsOf(cmb1), (std::vector<Text>{type, _T("All Files (*.*)")}));
        EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), sheet.Window());
        dialog.SetText(edt1, file);
        dialog.Click(answer);
    });
}

using DriversTest = SettingsTest;
}  // namespace

TEST_F(GeneralTest, LogLevelIsBoundedAtLoadByWhatIsOffered)
{
    std::vector<Text> levels = {_T("Quiet"),  _T("Minimal"), _T("Low"),
                                _T("Normal"), _T("Verbose"), _T("Diagnostic")};
    // What is shown, -1 for none, is saved.
    const std::tuple<const char*, size_t, DWORD, int> cases[] = {
        {"1", 6, 5, 5}, {"no", 6, 0x7FFFFFFF, 5}, {"false", 6, 0xFFFFFFFF, -1},
        {"", 5, 5, 4},  {"0123", 5, 6, 4},        {"", 5, 0x80000001, -1}};
    for (const auto& [variable, items, stored, shown] : cases)
    {
        AllowDiagnostic(variable);
        Store(keys::Bench, _T("QBLogVerbosity"), Dword(stored));
        levels.resize(items);
        // The variable is asked when the page is made, which is at start.
        RunEditor([&levels, level = shown, wasSix = items == 6](const Sheet& sheet) {
            AllowDiagnostic(wasSix ? "" : "1");
            EXPECT_EQ(sheet.ItemsOf(IdVerbosity), levels);
            EXPECT_EQ(sheet.SelectionOf(IdVerbosity), level);
            EXPECT_FALSE(sheet.CanApply());
            sheet.Ok();
        });
        EXPECT_EQ(Stored(keys::Bench, _T("QBLogVerbosity")), Dword(static_cast<DWORD>(shown)));
    }
    AllowDiagnostic("");
}

TEST_F(GeneralTest, ApplyHandsTheFocusOnAndCancelDropsWhatComesLater)
{
    RunEditor([](const Sheet& sheet) {
        EXPECT_EQ(sheet.Title(), SheetTitle);
        EXPECT_EQ(GetFocus(), sheet.Control(IdMode));
        sheet.Click(IdMode);
        EXPECT_FALSE(KeyExists(keys::Bench));
        SetFocus(sheet.ApplyButton());
        sheet.Apply();
        EXPECT_TRUE(IsWindowEnabled(GetFocus()) && IsWindowVisible(GetFocus()))
            << "where keys have an effect";
        sheet.Click(IdMode);
    });
    EXPECT_EQ(Stored(keys::Bench, _T("CertificationMode")), Dword(1));
}

TEST_F(DriversTest, StackIsLiveForItsToolsAndItsPathWhileItsSwitchIsOn)
{
    const Text longPath = _T("\\\\server\\") + Text(1000, _T('x'));
    for (const ProductId& tool : {HazelQB, KauriQB, CedarQB})
    {
        SCOPED_TRACE(Printable(tool));
        ClearSettings();
        InstallTools({tool});
        Store(keys::EhciDriver, _T("Path"), Sz(longPath));
        RunOnTab(tabs::Drivers, [&tool](const Sheet& sheet) {
            for (const Stack& stack : Stacks)
            {
                const bool needed = stack.tool == tool || (tool == CedarQB && stack.tool == KauriQB);
                for (const bool on : {true, false, true})
                {
                    EXPECT_EQ(sheet.IsEnabled(stack.group), needed) << stack.group;
                    EXPECT_EQ(sheet.IsEnabled(stack.enableSwitcher), needed);
                    ExpectPathEnabled(sheet, stack, needed && on);
                    sheet.Click(stack.enableSwitcher);
                }
            }
            for (const int deviceControl : {1042, 1047, 1048, 1049, 1043, 1050, 1051, 1052})
            {
                EXPECT_TRUE(sheet.IsEnabled(deviceControl)) << deviceControl;
            }
            sheet.Ok();
        });
        EXPECT_EQ(Stored(keys::EhciDriver, _T("Path")), Sz(longPath)) << "kept, in use or not";
        RunOnTab(tabs::Drivers, [](const Sheet& sheet) {
            for (const Stack& stack : Stacks)
            {
                ExpectPathEnabled(sheet, stack, false);
            }
        });
    }
}

TEST_F(DriversTest, BrowseTakesTheFolderOfTheChosenFileAndMarksNothing)
{
    RunOnTab(tabs::Drivers, [](const Sheet& sheet) {
        Browse(sheet, 1035, Folder + _T("input.inf"), IDCANCEL);
        EXPECT_EQ(sheet.TextOf(1034), Text());
        for (const auto& [browse, edit] :
             {std::pair{1035, 1034}, {1039, 1038}, {1054, 1053}, {1203, 1202}, {1052, 1051}, {1049, 1048}})
        {
            // The ending of a driver's file may be left out.
            Browse(sheet, browse, Folder + (browse == 1049 ? _T("input.inf") : _T("input")), IDOK);
            EXPECT_EQ(sheet.TextOf(edit), Folder);
            sheet.SetText(edit, edit == 1034 ? Folder : Text());
        }
        EXPECT_FALSE(sheet.CanApply());
        EXPECT_TRUE(IsWindowEnabled(sheet.Window()));
        sheet.Ok();
    });
    EXPECT_EQ(Stored(keys::EhciDriver, _T("Path")), Sz(Folder));
}

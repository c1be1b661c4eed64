// Drivers & Firmware: which groups live, what a switch does to its path, and Browse.
#include "support/scripts.h"

#include <algorithm>

namespace {
constexpr int IdFileTypes = 1136;  // the system's number in its dialog

struct Stack {
    int group;
    int enableSwitcher;
    std::vector<int> pathControls;  // label, edit, button
    ProductId tool;                 // needs this one and, but for CedarQB, no other
};

const std::vector<Stack> Stacks = {{1041, 1032, {1033, 1034, 1035}, HazelQB},
                                   {1040, 1036, {1037, 1038, 1039}, KauriQB},
                                   {1044, 1045, {1046, 1053, 1054}, CedarQB},
                                   {1199, 1200, {1201, 1202, 1203}, CedarQB}};

void ExpectPathEnabled(const Sheet& sheet, const Stack& stack, bool enabled) {
    for (const int control : stack.pathControls) { EXPECT_EQ(sheet.IsEnabled(control), enabled) << control; }
}

// A folder of its own for a test, with a driver's file in it.
class DriverFolder {
public:
    DriverFolder() {
        CreateDirectoryW(Path().c_str(), nullptr);
        CloseHandle(CreateFileW(File().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    }
    ~DriverFolder() {
        DeleteFileW(File().c_str());
        RemoveDirectoryW(Path().c_str());
    }
    DriverFolder(const DriverFolder&) = delete;
    DriverFolder& operator=(const DriverFolder&) = delete;

    static Text Path() {
        TCHAR temporary[MAX_PATH] = {};
        GetTempPathW(MAX_PATH, temporary);
        return Text(temporary) + _T("qb browse\\");
    }
    static Text File() { return Path() + _T("driver.inf"); }
};

BOOL CALLBACK TakeEdit(HWND window, LPARAM found) {
    const bool isWanted = IsOf(window, _T("Edit")) && IsWindowVisible(window);
    *reinterpret_cast<HWND*>(found) = isWanted ? window : nullptr;
    return !isWanted;
}

// Opens the system's dialog by a Browse button, looks at what it comes up with, and answers it.
void Browse(const Sheet& sheet, int browse, const Text& file, int answer) {
    const bool isHex = browse == 1049;
    WithDialog(_T("Open"), sheet, browse, [&](const Form& dialog) {
        HWND edit = nullptr;
        EnumChildWindows(dialog.Window(), TakeEdit, reinterpret_cast<LPARAM>(&edit));
        EXPECT_EQ(Form(edit).Title(), isHex ? _T("*.hex") : _T("*.inf"));
        EXPECT_EQ(
            dialog.ItemsOf(IdFileTypes),
            (std::vector<Text>{isHex ? _T("HEX Files (*.hex)") : _T("INF Files (*.inf)"), _T("All Files (*.*)")}));
        EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), sheet.Window());
        SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(file.c_str()));
        dialog.Click(answer);
    });
}

using DriversTest = SettingsTest;
}  // namespace

TEST_F(DriversTest, StackIsLiveForItsToolsAndItsPathWhileItsSwitchIsOn) {
    const Text longPath = _T("\\\\server\\") + Text(1000, _T('x'));
    for (const ProductId& tool : {HazelQB, KauriQB, CedarQB}) {
        SCOPED_TRACE(Printable(tool));
        ClearSettings();
        InstallTools({tool});
        Store(keys::EhciDriver, _T("Path"), Sz(longPath));
        RunOnTab(tabs::Drivers, [&tool](const Sheet& sheet) {
            for (const Stack& stack : Stacks) {
                const bool needed = stack.tool == tool || (tool == CedarQB && stack.tool == KauriQB);
                for (const bool on : {true, false, true}) {
                    EXPECT_EQ(sheet.IsEnabled(stack.group), needed) << stack.group;
                    EXPECT_EQ(sheet.IsEnabled(stack.enableSwitcher), needed);
                    ExpectPathEnabled(sheet, stack, needed && on);
                    sheet.Click(stack.enableSwitcher);
                }
            }
            for (const int deviceControl : {1042, 1047, 1048, 1049, 1043, 1050, 1051, 1052}) {
                EXPECT_TRUE(sheet.IsEnabled(deviceControl)) << deviceControl;
            }
            sheet.Ok();
        });
        EXPECT_EQ(Stored(keys::EhciDriver, _T("Path")), Sz(longPath)) << "kept, in use or not";
        RunOnTab(tabs::Drivers, [](const Sheet& sheet) {
            for (const Stack& stack : Stacks) { ExpectPathEnabled(sheet, stack, false); }
        });
    }
}

TEST_F(DriversTest, BrowseTakesTheFolderOfTheChosenFileAndMarksNothing) {
    const DriverFolder folder;
    RunOnTab(tabs::Drivers, [](const Sheet& sheet) {
        Browse(sheet, 1035, DriverFolder::File(), IDCANCEL);
        EXPECT_EQ(sheet.TextOf(1034), Text());
        for (const auto& [browse, edit] :
             {std::pair{1035, 1034}, {1039, 1038}, {1054, 1053}, {1203, 1202}, {1052, 1051}, {1049, 1048}}) {
            Browse(sheet, browse, DriverFolder::File(), IDOK);
            EXPECT_EQ(sheet.TextOf(edit), DriverFolder::Path());
            sheet.SetText(edit, edit == 1034 ? DriverFolder::Path() : Text());
        }
        EXPECT_FALSE(sheet.CanApply());
        EXPECT_TRUE(IsWindowEnabled(sheet.Window()));
        sheet.Ok();
    });
    EXPECT_EQ(Stored(keys::EhciDriver, _T("Path")), Sz(DriverFolder::Path()));
}

// The real program: how it starts, what a second one does, and what it leaves in the registry.
#include "driver/editor.h"
#include "resource.h"
#include "support/registry.h"

namespace {
using Titles = std::vector<Text>;

class StartJourney : public SettingsTest {
protected:
    // Runs a further instance to its end; fails the test if it shows anything.
    static void RunSecondInstance() {
        const EditorProcess second;
        while (second.Runs()) {
            ASSERT_EQ(second.Windows(), Titles());
            Sleep(1);
        }
        EXPECT_TRUE(second.WaitForEnd());
    }
};
}  // namespace

TEST_F(StartJourney, SheetOpensOnGeneralSettingsAndStoresWhatWasShown) {
    // A command line makes no difference.
    const EditorProcess editor(L"/? -page 3 \"C:\\settings.txt\"");
    const Sheet sheet = editor.WaitForSheet();
    EXPECT_EQ(editor.Windows(), Titles{SheetTitle});
    EXPECT_EQ(Form(sheet.Page()).Title(), tabs::General);
    const LONG style = GetWindowLongW(sheet.Window(), GWL_STYLE);
    EXPECT_EQ(style & (WS_MINIMIZEBOX | WS_MAXIMIZEBOX), WS_MINIMIZEBOX | WS_MAXIMIZEBOX);
    const HWND help = GetDlgItem(sheet.Window(), IDHELP);
    EXPECT_FALSE(help != nullptr && IsWindowVisible(help));
    EXPECT_EQ(sheet.OpenAll().size(), 9U);
    ASSERT_TRUE(sheet.SelectIndex(0));
    sheet.Click(IDC_CERTIFICATION_MODE);
    EXPECT_FALSE(KeyExists(keys::Bench));
    sheet.Apply();
    const Tree applied = StoredSettings();
    EXPECT_EQ(applied.at(keys::Bench).at(L"CertificationMode"), Dword(1));
    // What is edited after Apply goes with the window.
    sheet.Retype(IDC_DISPLAY_UPDATE_TIME, L"7");
    // An emptied number is asked for under the program's name.
    SendMessageW(sheet.Control(IDC_DISPLAY_UPDATE_TIME), EM_SETSEL, 0, -1);
    PostMessageW(sheet.Control(IDC_DISPLAY_UPDATE_TIME), WM_CHAR, L'\b', 1);
    const Form prompt(editor.WaitForWindow(L"QBSettings"));
    prompt.ClickToOpen(IDOK);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(prompt.Window()); }));
    PostMessageW(sheet.Window(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(editor.WaitForEnd());
    EXPECT_EQ(StoredSettings(), applied);
}

TEST_F(StartJourney, SecondInstanceBringsTheFirstToTheFront) {
    const EditorProcess first;
    const Sheet sheet = first.WaitForSheet();
    const HWND cover = CreateWindowExW(0, L"STATIC", L"Cover", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1200, 900,
                                       nullptr, nullptr, nullptr, nullptr);
    for (const bool minimised : {false, true}) {
        SCOPED_TRACE(minimised);
        ShowWindow(sheet.Window(), minimised ? SW_MINIMIZE : SW_SHOWNORMAL);
        SetForegroundWindow(cover);
        ASSERT_EQ(GetForegroundWindow(), cover);
        RunSecondInstance();
        EXPECT_EQ(GetForegroundWindow(), sheet.Window());
        EXPECT_FALSE(IsIconic(sheet.Window()));
    }
    DestroyWindow(cover);
    // The sheet is as usable as before; with it gone, the next is first.
    sheet.Click(IDC_CERTIFICATION_MODE);
    EXPECT_TRUE(first.EndBy(IDOK, sheet));
    const EditorProcess next;
    EXPECT_EQ(next.WaitForSheet().CheckOf(IDC_CERTIFICATION_MODE), BST_CHECKED);
}

TEST_F(StartJourney, WithoutTheListOfToolsThereIsAMessageAndNoSheet) {
    ClearSettings();
    const EditorProcess editor;
    const Form box(editor.WaitForWindow(titles::Error));
    EXPECT_EQ(box.TextOf(IdMessageText), NoProductList);
    RunSecondInstance();
    EXPECT_EQ(editor.Windows(), Titles{titles::Error});
    box.ClickToOpen(IDOK);
    EXPECT_TRUE(editor.WaitForEnd());
    EXPECT_FALSE(KeyExists(keys::Bench));
}

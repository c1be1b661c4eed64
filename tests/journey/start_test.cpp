// How the program starts, and what a second one does.
#include "driver/editor.h"
#include "resource.h"
#include "support/settings_test.h"

namespace
{
using Titles = std::vector<std::wstring>;

class StartJourney : public SettingsTest
{
protected:
    void SetUp() override
    {
        SettingsTest::SetUp();
        InstallTools(AllTools);
    }
};

// Runs a further instance to its end; fails the test if it shows anything.
void RunSecondInstance()
{
    const EditorProcess second;
    while (second.Runs())
    {
        ASSERT_EQ(second.Windows(), Titles());
        Sleep(1);
    }
    EXPECT_TRUE(second.WaitForEnd());
}
}  // namespace

TEST_F(StartJourney, SheetOpensOnGeneralSettings)
{
    // A command line makes no difference.
    const EditorProcess editor(L"/? -page 3 \"C:\\settings.txt\"");
    const EditorSheet sheet = editor.WaitForSheet();
    EXPECT_EQ(editor.Windows(), Titles{titles::Sheet});
    EXPECT_EQ(EditorDialog(sheet.Page()).Title(), tabs::General);
    EXPECT_FALSE(sheet.CanApply());
    const LONG style = GetWindowLongW(sheet.Window(), GWL_STYLE);
    EXPECT_TRUE(style & WS_MINIMIZEBOX);
    EXPECT_TRUE(style & WS_MAXIMIZEBOX);
    const HWND help = GetDlgItem(sheet.Window(), IDHELP);
    EXPECT_FALSE(help != nullptr && IsWindowVisible(help));
    EXPECT_TRUE(sheet.Cancel());
    EXPECT_TRUE(editor.WaitForEnd());
}

TEST_F(StartJourney, SecondInstanceBringsTheFirstToTheFront)
{
    const EditorProcess first;
    const EditorSheet sheet = first.WaitForSheet();
    const HWND cover = CreateWindowExW(0, L"STATIC", L"Cover", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1200,
                                       900, nullptr, nullptr, nullptr, nullptr);
    for (const bool minimised : {false, true})
    {
        SCOPED_TRACE(minimised);
        ShowWindow(sheet.Window(), minimised ? SW_MINIMIZE : SW_SHOWNORMAL);
        SetForegroundWindow(cover);
        ASSERT_EQ(GetForegroundWindow(), cover);
        RunSecondInstance();
        EXPECT_EQ(GetForegroundWindow(), sheet.Window());
        EXPECT_FALSE(IsIconic(sheet.Window()));
        EXPECT_EQ(first.Windows(), Titles{titles::Sheet});
    }
    DestroyWindow(cover);
    // The sheet is as usable as before.
    sheet.Click(IDC_CERTIFICATION_MODE);
    EXPECT_TRUE(sheet.Ok());
    EXPECT_TRUE(first.WaitForEnd());
    // With the first gone, the next is first.
    const EditorProcess next;
    EXPECT_TRUE(next.WaitForSheet().IsChecked(IDC_CERTIFICATION_MODE));
}

TEST_F(StartJourney, WithoutTheListOfToolsThereIsAMessageAndNoSheet)
{
    ClearSettings();
    const EditorProcess editor;
    const EditorDialog box(editor.WaitForWindow(titles::Error));
    EXPECT_EQ(box.TextOf(IdMessageText), NoProductList);
    RunSecondInstance();
    EXPECT_EQ(editor.Windows(), Titles{titles::Error});
    box.ClickToOpen(IDOK);
    EXPECT_TRUE(editor.WaitForEnd());
    EXPECT_FALSE(KeyExists(keys::Bench));
}

TEST_F(StartJourney, AListThatCannotBeReadWhollyIsNoList)
{
    Store(keys::Installed, L"KauriQB", Sz(L"yes"));
    const EditorProcess editor;
    const EditorDialog box(editor.WaitForWindow(titles::Error));
    EXPECT_EQ(editor.Windows(), Titles{titles::Error});
    box.ClickToOpen(IDOK);
    EXPECT_TRUE(editor.WaitForEnd());
}

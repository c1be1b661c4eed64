// The property sheet: which page is told what, in which order, and what becomes of its answer.
#include "support/form.h"
#include "support/trial_sheet.h"

#include <gtest/gtest.h>
#include <tchar.h>

namespace
{
Text ClassOf(HWND window)
{
    TCHAR name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

class PropertySheetTest : public testing::Test
{
protected:
    void OpenQuietly()
    {
        sheet.Open();
        sheet.Take();
    }

    // Lets each page mark itself when it gets that notification, or WM_INITDIALOG.
    void MarkPagesAt(UINT code)
    {
        for (TrialSheet::Page& page : sheet.pages)
        {
            page.onReceived = [&page, code](UINT received)
            {
                if (received == code)
                {
                    SendMessageW(GetParent(page.window), PSM_CHANGED, reinterpret_cast<WPARAM>(page.window),
                                 0);
                }
            };
        }
    }

    LRESULT SelectedTab() const { return SendMessageW(sheet.Tabs(), TCM_GETCURSEL, 0, 0); }

    TrialSheet sheet;
};
}  // namespace

TEST_F(PropertySheetTest, OpensWithItsFirstPageAlone)
{
    sheet.Open();
    EXPECT_EQ(sheet.Take(),
              (Events{"0 addref", "1 addref", "2 addref", "0 create", "0 init", "0 setactive"}));

    EXPECT_EQ(ClassOf(sheet.window), _T("#32770"));
    EXPECT_EQ(Form(sheet.window).Title(), _T("Trial sheet"));
    EXPECT_TRUE(IsWindowVisible(sheet.window));
    EXPECT_EQ(GetActiveWindow(), sheet.window);
    EXPECT_EQ(sheet.Current(), 0);
    EXPECT_EQ(GetParent(sheet.pages[0].window), sheet.window);
    EXPECT_TRUE(IsWindowVisible(sheet.pages[0].window));
    EXPECT_TRUE(IsWindowEnabled(sheet.pages[0].window));
    EXPECT_EQ(GetFocus(), GetDlgItem(sheet.pages[0].window, TrialSheet::IdFirstEdit));

    EXPECT_EQ(Form(sheet.window).TextOf(IDOK), _T("OK"));
    EXPECT_EQ(Form(sheet.window).TextOf(IDCANCEL), _T("Cancel"));
    EXPECT_EQ(Form(sheet.window).TextOf(IdApply), _T("&Apply"));
    EXPECT_FALSE(sheet.CanApply());
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(sheet.window, 9)));  // Help

    EXPECT_EQ(sheet.Tabs(), GetDlgItem(sheet.window, TrialSheet::IdTabControl));
    EXPECT_EQ(ClassOf(sheet.Tabs()), WC_TABCONTROLW);
    EXPECT_EQ(Sheet(sheet.window).Tabs(), (std::vector<Text>{_T("One"), _T("Two && half"), _T("Three")}));
    TCITEMW none = {};
    EXPECT_FALSE(SendMessageW(sheet.Tabs(), TCM_GETITEMW, 3, reinterpret_cast<LPARAM>(&none)));
    EXPECT_EQ(SelectedTab(), 0);
}

TEST_F(PropertySheetTest, OpensAtTheStartPage)
{
    sheet.Open(1);
    EXPECT_EQ(sheet.Take(),
              (Events{"0 addref", "1 addref", "2 addref", "1 create", "1 init", "1 setactive"}));
    EXPECT_EQ(sheet.Current(), 1);
    EXPECT_EQ(SelectedTab(), 1);
}

TEST_F(PropertySheetTest, CreatesAPageAtItsFirstShowing)
{
    sheet.noteShowing = true;
    OpenQuietly();
    EXPECT_TRUE(sheet.Select(2));
    EXPECT_EQ(sheet.Take(),
              (Events{"0 killactive", "0 hide", "2 create", "2 init", "2 setactive", "2 show"}));
    EXPECT_EQ(sheet.Current(), 2);
    EXPECT_EQ(SelectedTab(), 2);
    EXPECT_FALSE(IsWindowVisible(sheet.pages[0].window));
    EXPECT_EQ(sheet.Send(PSM_INDEXTOHWND, 0), reinterpret_cast<LRESULT>(sheet.pages[0].window));
    EXPECT_EQ(sheet.Send(PSM_INDEXTOHWND, 1), 0);
    EXPECT_EQ(sheet.Send(PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(sheet.pages[2].window)), 2);
    EXPECT_EQ(sheet.Send(PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(sheet.window)), -1);

    EXPECT_TRUE(sheet.Select(0));
    EXPECT_EQ(sheet.Take(), (Events{"2 killactive", "2 hide", "0 setactive", "0 show"}));
    EXPECT_TRUE(sheet.Select(0));
    EXPECT_EQ(sheet.Take(), (Events{"0 killactive", "0 hide", "0 setactive", "0 show"}));

    EXPECT_FALSE(sheet.Select(3));
    EXPECT_EQ(sheet.Current(), 0);
    EXPECT_NE(sheet.Send(PSM_SETCURSEL, 0, sheet.Send(PSM_INDEXTOPAGE, 1)), 0);
    EXPECT_EQ(sheet.Current(), 1);
}

TEST_F(PropertySheetTest, PageRefusesToBeLeft)
{
    OpenQuietly();
    sheet.Select(1);
    sheet.Mark(1);
    sheet.pages[1].answers[PSN_KILLACTIVE] = TRUE;
    sheet.Take();

    EXPECT_FALSE(sheet.Select(0));
    EXPECT_EQ(sheet.Send(PSM_APPLY), 0);
    sheet.Send(WM_COMMAND, IDOK);
    EXPECT_EQ(sheet.Take(), (Events{"1 killactive", "1 killactive", "1 killactive"}));
    EXPECT_EQ(sheet.Current(), 1);
    EXPECT_EQ(SelectedTab(), 1);
    EXPECT_TRUE(sheet.CanApply());
}

TEST_F(PropertySheetTest, PageRefusesToBeShown)
{
    OpenQuietly();
    sheet.pages[1].answers[PSN_SETACTIVE] = -1;
    EXPECT_TRUE(sheet.Select(1));
    EXPECT_EQ(sheet.Take(), (Events{"0 killactive", "1 create", "1 init", "1 setactive", "2 create", "2 init",
                                    "2 setactive"}));
    EXPECT_EQ(sheet.Current(), 2);
    EXPECT_EQ(SelectedTab(), 2);
}

TEST_F(PropertySheetTest, ApplyAsksThePagesThatWereCreated)
{
    OpenQuietly();
    sheet.Select(2);
    sheet.Mark(0);
    sheet.Take();
    SendMessageW(GetDlgItem(sheet.window, IdApply), BM_CLICK, 0, 0);
    EXPECT_EQ(sheet.Take(), (Events{"2 killactive", "0 apply", "2 apply", "2 setactive"}));
    EXPECT_FALSE(sheet.CanApply());
    EXPECT_EQ(sheet.Current(), 2);

    EXPECT_NE(sheet.Send(PSM_APPLY), 0);
    EXPECT_EQ(sheet.Take(), (Events{"2 killactive", "0 apply", "2 apply", "2 setactive"}));
}

TEST_F(PropertySheetTest, PageRefusesToApply)
{
    OpenQuietly();
    sheet.Select(1);
    sheet.Select(2);
    sheet.Mark(0);
    sheet.Take();

    sheet.pages[1].answers[PSN_APPLY] = PSNRET_INVALID_NOCHANGEPAGE;
    EXPECT_EQ(sheet.Send(PSM_APPLY), 0);
    EXPECT_EQ(sheet.Take(), (Events{"2 killactive", "0 apply", "1 apply"}));
    EXPECT_EQ(sheet.Current(), 2);
    sheet.Send(WM_COMMAND, IDOK);
    EXPECT_EQ(sheet.Take(), (Events{"2 killactive", "0 apply 1", "1 apply 1"}));
    EXPECT_EQ(sheet.Current(), 2);
    EXPECT_TRUE(sheet.CanApply());

    sheet.pages[1].answers[PSN_APPLY] = PSNRET_INVALID;
    EXPECT_EQ(sheet.Send(PSM_APPLY), 0);
    EXPECT_EQ(sheet.Current(), 1);
    EXPECT_EQ(SelectedTab(), 1);
    EXPECT_TRUE(sheet.CanApply());
}

TEST_F(PropertySheetTest, OkAppliesAndLeavesTheWindowToItsOwner)
{
    OpenQuietly();
    sheet.Select(1);
    sheet.Take();
    SendMessageW(GetDlgItem(sheet.window, IDOK), BM_CLICK, 0, 0);
    EXPECT_EQ(sheet.Take(), (Events{"1 killactive", "0 apply 1", "1 apply 1"}));
    EXPECT_EQ(sheet.Current(), -1);
    EXPECT_GT(sheet.Send(PSM_GETRESULT), 0);
    ASSERT_TRUE(IsWindow(sheet.window));

    DestroyWindow(sheet.window);
    EXPECT_EQ(sheet.Take(), (Events{"0 destroy", "0 release", "1 destroy", "1 release", "2 release"}));
}

TEST_F(PropertySheetTest, EveryWayOfCancelling)
{
    struct Way
    {
        const char* name;
        std::function<void()> close;
        const char* reset;
    };
    const Way ways[] = {
        {"button", [&] { SendMessageW(GetDlgItem(sheet.window, IDCANCEL), BM_CLICK, 0, 0); }, "0 reset"},
        {"command", [&] { sheet.Send(WM_COMMAND, IDCANCEL); }, "0 reset"},
        {"press button", [&] { sheet.Send(PSM_PRESSBUTTON, PSBTN_CANCEL); }, "0 reset"},
        {"escape", [&] { sheet.Press(VK_ESCAPE); }, "0 reset"},
        {"close", [&] { sheet.Send(WM_CLOSE); }, "0 reset 1"},
        {"system menu", [&] { sheet.Send(WM_SYSCOMMAND, SC_CLOSE); }, "0 reset 1"},
    };
    for (const Way& way : ways)
    {
        SCOPED_TRACE(way.name);
        OpenQuietly();
        sheet.pages[0].answers[PSN_QUERYCANCEL] = TRUE;
        way.close();
        EXPECT_EQ(sheet.Take(), (Events{"0 querycancel"}));
        EXPECT_EQ(sheet.Current(), 0);

        sheet.pages[0].answers.clear();
        way.close();
        EXPECT_EQ(sheet.Take(), (Events{"0 querycancel", way.reset}));
        EXPECT_EQ(sheet.Send(PSM_GETCURRENTPAGEHWND), 0);
        EXPECT_EQ(sheet.Send(PSM_GETRESULT), 0);
        EXPECT_TRUE(IsWindow(sheet.window));
        sheet.Close();
    }
}

TEST_F(PropertySheetTest, PressesButtons)
{
    OpenQuietly();
    sheet.Send(PSM_PRESSBUTTON, PSBTN_APPLYNOW);
    EXPECT_EQ(sheet.Take(), (Events{"0 killactive", "0 apply", "0 setactive"}));
    sheet.Send(PSM_PRESSBUTTON, PSBTN_HELP);
    EXPECT_EQ(sheet.Take(), (Events{"0 help"}));
    EXPECT_EQ(sheet.Current(), 0);
    sheet.Send(PSM_PRESSBUTTON, PSBTN_OK);
    EXPECT_EQ(sheet.Take(), (Events{"0 killactive", "0 apply 1"}));
    EXPECT_EQ(sheet.Current(), -1);
}

TEST_F(PropertySheetTest, ApplyIsEnabledWhileAPageIsMarked)
{
    OpenQuietly();
    sheet.Select(1);
    EXPECT_FALSE(sheet.CanApply());
    sheet.Mark(0);
    sheet.Mark(1);
    EXPECT_TRUE(sheet.CanApply());
    sheet.Mark(0, false);
    EXPECT_TRUE(sheet.CanApply());
    sheet.Mark(1, false);
    EXPECT_FALSE(sheet.CanApply());
}

TEST_F(PropertySheetTest, MarkOfAPageBeingCreatedIsForgotten)
{
    MarkPagesAt(WM_INITDIALOG);
    sheet.Open();
    EXPECT_FALSE(sheet.CanApply());
    // The button of a later page is on, but not for a mark: the next look at the marks finds none.
    sheet.Select(1);
    EXPECT_TRUE(sheet.CanApply());
    sheet.Mark(0, false);
    EXPECT_FALSE(sheet.CanApply());
}

TEST_F(PropertySheetTest, MarkOfAPageBecomingActiveStays)
{
    MarkPagesAt(PSN_SETACTIVE);
    sheet.Open();
    EXPECT_TRUE(sheet.CanApply());
    sheet.Select(1);
    sheet.Mark(0, false);
    EXPECT_TRUE(sheet.CanApply());
    sheet.Mark(1, false);
    EXPECT_FALSE(sheet.CanApply());
}

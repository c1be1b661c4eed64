// The property sheet: which page is told what, in which order, and what becomes of its answer.
#include "support/trial_sheet.h"

#include <gtest/gtest.h>
#include <tchar.h>

namespace
{
using String = std::basic_string<TCHAR>;

String ClassOf(HWND window)
{
    TCHAR name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

String TextOf(HWND window)
{
    TCHAR text[64] = {};
    GetWindowTextW(window, text, 64);
    return text;
}

String TabText(HWND tabs, WPARAM index)
{
    TCHAR text[64] = {};
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = 64;
    return SendMessageW(tabs, TCM_GETITEMW, index, reinterpret_cast<LPARAM>(&item)) != 0 ? String(text)
                                                                                         : String();
}

class PropertySheetTest : public testing::Test
{
protected:
    void OpenQuietly()
    {
        sheet.Open();
        sheet.Take();
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

    EXPECT_EQ(ClassOf(sheet.window), String(_T("#32770")));
    EXPECT_EQ(TextOf(sheet.window), String(_T("Trial sheet")));
    EXPECT_TRUE(IsWindowVisible(sheet.window));
    EXPECT_EQ(GetActiveWindow(), sheet.window);
    EXPECT_EQ(sheet.Current(), 0);
    EXPECT_EQ(GetParent(sheet.pages[0].window), sheet.window);
    EXPECT_TRUE(IsWindowVisible(sheet.pages[0].window));
    EXPECT_TRUE(IsWindowEnabled(sheet.pages[0].window));
    EXPECT_EQ(GetFocus(), GetDlgItem(sheet.pages[0].window, TrialSheet::IdFirstEdit));

    EXPECT_EQ(TextOf(GetDlgItem(sheet.window, IDOK)), String(_T("OK")));
    EXPECT_EQ(TextOf(GetDlgItem(sheet.window, IDCANCEL)), String(_T("Cancel")));
    EXPECT_EQ(TextOf(GetDlgItem(sheet.window, TrialSheet::IdApply)), String(_T("&Apply")));
    EXPECT_FALSE(sheet.CanApply());
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(sheet.window, 9)));  // Help

    EXPECT_EQ(sheet.Tabs(), GetDlgItem(sheet.window, TrialSheet::IdTabControl));
    EXPECT_EQ(ClassOf(sheet.Tabs()), String(WC_TABCONTROLW));
    EXPECT_EQ(SendMessageW(sheet.Tabs(), TCM_GETITEMCOUNT, 0, 0), 3);
    EXPECT_EQ(TabText(sheet.Tabs(), 0), String(_T("One")));
    EXPECT_EQ(TabText(sheet.Tabs(), 1), String(_T("Two && half")));
    EXPECT_EQ(TabText(sheet.Tabs(), 3), String());
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
    SendMessageW(GetDlgItem(sheet.window, TrialSheet::IdApply), BM_CLICK, 0, 0);
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
    for (TrialSheet::Page& page : sheet.pages)
    {
        page.onReceived = [&](UINT code)
        {
            if (code == WM_INITDIALOG)
            {
                SendMessageW(GetParent(page.window), PSM_CHANGED, reinterpret_cast<WPARAM>(page.window), 0);
            }
        };
    }
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
    for (TrialSheet::Page& page : sheet.pages)
    {
        page.onReceived = [&](UINT code)
        {
            if (code == PSN_SETACTIVE)
            {
                SendMessageW(GetParent(page.window), PSM_CHANGED, reinterpret_cast<WPARAM>(page.window), 0);
            }
        };
    }
    sheet.Open();
    EXPECT_TRUE(sheet.CanApply());
    sheet.Select(1);
    sheet.Mark(0, false);
    EXPECT_TRUE(sheet.CanApply());
    sheet.Mark(1, false);
    EXPECT_FALSE(sheet.CanApply());
}

// The property sheet under keys and mouse, in its own modal loop, and made of other kinds of pages.
#include "resource.h"
#include "support/form.h"
#include "support/trial_sheet.h"

#include <gtest/gtest.h>
#include <tchar.h>

namespace
{
class SheetWaysTest : public testing::Test
{
protected:
    void OpenQuietly()
    {
        sheet.Open();
        sheet.Take();
    }

    // Opens a sheet of the one page and gives the titles of its tabs.
    static std::vector<Text> TabsWith(PROPSHEETPAGEW page)
    {
        page.dwSize = sizeof(page);
        page.hInstance = GetModuleHandleW(nullptr);
        page.pfnDlgProc = [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; };
        PROPSHEETHEADERW header = {};
        header.dwSize = sizeof(header);
        header.dwFlags = PSH_PROPSHEETPAGE | PSH_MODELESS | PSH_USEICONID;
        header.hInstance = GetModuleHandleW(nullptr);
        header.pszIcon = MAKEINTRESOURCEW(IDR_MAINFRAME);
        header.pszCaption = _T("Caption");
        header.nPages = 1;
        header.ppsp = &page;
        const HWND window = reinterpret_cast<HWND>(PropertySheetW(&header));
        std::vector<Text> titles = Sheet(window).Tabs();
        DestroyWindow(window);
        return titles;
    }

    TrialSheet sheet;
};
}  // namespace

TEST_F(SheetWaysTest, TabGoesThroughThePageAndTheButtons)
{
    OpenQuietly();
    std::vector<int> ids;
    for (int step = 0; step < 5; ++step)
    {
        EXPECT_TRUE(sheet.Press(VK_TAB));
        ids.push_back(GetDlgCtrlID(GetFocus()));
    }
    // Apply is disabled.
    EXPECT_EQ(ids, (std::vector<int>{TrialSheet::IdSecondEdit, IDOK, IDCANCEL, TrialSheet::IdTabControl,
                                     TrialSheet::IdFirstEdit}));
    sheet.Press(VK_TAB, false, true);
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), TrialSheet::IdTabControl);
}

TEST_F(SheetWaysTest, ControlKeysTurnThePages)
{
    OpenQuietly();
    EXPECT_TRUE(sheet.Press(VK_TAB, true));
    EXPECT_EQ(sheet.Current(), 1);
    sheet.Press(VK_TAB, true);
    sheet.Press(VK_TAB, true);
    EXPECT_EQ(sheet.Current(), 0);
    sheet.Press(VK_TAB, true, true);
    EXPECT_EQ(sheet.Current(), 2);
    sheet.Press(VK_NEXT, true);
    EXPECT_EQ(sheet.Current(), 0);
    sheet.Press(VK_PRIOR, true);
    EXPECT_EQ(sheet.Current(), 2);
    sheet.Press(VK_PRIOR);
    EXPECT_EQ(sheet.Current(), 2);

    sheet.pages[2].answers[PSN_KILLACTIVE] = TRUE;
    sheet.Press(VK_TAB, true);
    EXPECT_EQ(sheet.Current(), 2);
}

TEST_F(SheetWaysTest, ReturnIsOk)
{
    OpenQuietly();
    EXPECT_TRUE(sheet.Press(VK_RETURN));
    EXPECT_EQ(sheet.Take(), (Events{"0 killactive", "0 apply 1"}));
    EXPECT_EQ(sheet.Current(), -1);
}

TEST_F(SheetWaysTest, MessagesOfOtherWindowsAreLeftAlone)
{
    OpenQuietly();
    MSG message = {};
    message.hwnd = GetDesktopWindow();
    message.message = WM_KEYDOWN;
    message.wParam = VK_ESCAPE;
    EXPECT_EQ(sheet.Send(PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(&message)), 0);
    message.hwnd = nullptr;
    EXPECT_EQ(sheet.Send(PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(&message)), 0);
    EXPECT_EQ(sheet.Current(), 0);
}

TEST_F(SheetWaysTest, TabControlTurnsThePages)
{
    OpenQuietly();
    const HWND tabs = sheet.Tabs();
    RECT tab = {};
    EXPECT_NE(SendMessageW(tabs, TCM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&tab)), 0);
    const LPARAM point = MAKELPARAM(tab.left + 5, tab.top + 5);
    SendMessageW(tabs, WM_LBUTTONDOWN, MK_LBUTTON, point);
    SendMessageW(tabs, WM_LBUTTONUP, 0, point);
    EXPECT_EQ(sheet.Take(), (Events{"0 killactive", "1 create", "1 init", "1 setactive"}));
    EXPECT_EQ(sheet.Current(), 1);
    EXPECT_EQ(SendMessageW(tabs, TCM_GETCURSEL, 0, 0), 1);

    SetFocus(tabs);
    SendMessageW(tabs, WM_KEYDOWN, VK_LEFT, 1);
    SendMessageW(tabs, WM_KEYDOWN, VK_LEFT, 1);
    EXPECT_EQ(sheet.Take(), (Events{"1 killactive", "0 setactive"}));
    sheet.pages[0].answers[PSN_KILLACTIVE] = TRUE;
    SendMessageW(tabs, WM_KEYDOWN, VK_RIGHT, 1);
    EXPECT_EQ(sheet.Take(), (Events{"0 killactive"}));
    EXPECT_EQ(sheet.Current(), 0);
    EXPECT_EQ(GetFocus(), tabs);

    // Choosing a tab by message is not telling the sheet.
    SendMessageW(tabs, TCM_SETCURSEL, 2, 0);
    EXPECT_EQ(sheet.Take(), Events{});
    EXPECT_EQ(sheet.Current(), 0);
}

TEST_F(SheetWaysTest, ModalSheetWaitsAndGivesItsResult)
{
    const HWND owner = CreateWindowExW(0, _T("STATIC"), _T("Owner"), WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                       300, 200, nullptr, nullptr, nullptr, nullptr);
    const auto check = [&]
    {
        EXPECT_FALSE(IsWindowEnabled(owner));
        EXPECT_EQ(GetWindow(sheet.window, GW_OWNER), owner);
        sheet.Take();
    };
    EXPECT_EQ(sheet.RunModal(owner,
                             [&]
                             {
                                 check();
                                 PostMessageW(sheet.window, PSM_PRESSBUTTON, PSBTN_OK, 0);
                             }),
              1);
    EXPECT_EQ(sheet.Take(),
              (Events{"0 killactive", "0 apply 1", "0 destroy", "0 release", "1 release", "2 release"}));
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ(GetActiveWindow(), owner);

    EXPECT_EQ(sheet.RunModal(owner,
                             [&]
                             {
                                 check();
                                 PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
                             }),
              0);
    EXPECT_EQ(sheet.Take(),
              (Events{"0 querycancel", "0 reset", "0 destroy", "0 release", "1 release", "2 release"}));
    EXPECT_EQ(sheet.RunModal(nullptr, [&] { DestroyWindow(sheet.window); }), 0);
    DestroyWindow(owner);
}

TEST_F(SheetWaysTest, PageComesFromTheResources)
{
    PROPSHEETPAGEW page = {};
    page.pszTemplate = MAKEINTRESOURCEW(IDD_GENERAL_SETTINGS);
    using Titles = std::vector<Text>;
    EXPECT_EQ(TabsWith(page), Titles{_T("General Settings")});
    page.dwFlags = PSP_USETITLE;
    page.pszTitle = _T("Own title");
    EXPECT_EQ(TabsWith(page), Titles{_T("Own title")});
    // A page without a template is left out.
    page.pszTemplate = MAKEINTRESOURCEW(9999);
    EXPECT_EQ(TabsWith(page), Titles{});
}

TEST_F(SheetWaysTest, PageMayBeMadeBeforeItsSheet)
{
    const HPROPSHEETPAGE unused = CreatePropertySheetPageW(&sheet.pages[0].record);
    EXPECT_TRUE(DestroyPropertySheetPage(unused));
    EXPECT_EQ(sheet.Take(), (Events{"0 addref", "0 release"}));

    HPROPSHEETPAGE page = CreatePropertySheetPageW(&sheet.pages[1].record);
    PROPSHEETHEADERW header = {};
    header.dwSize = sizeof(header);
    header.dwFlags = PSH_MODELESS;
    header.nPages = 1;
    header.phpage = &page;
    sheet.window = reinterpret_cast<HWND>(PropertySheetW(&header));
    EXPECT_EQ(sheet.Take(), (Events{"1 addref", "1 create", "1 init", "1 setactive"}));
    EXPECT_EQ(sheet.Send(PSM_INDEXTOPAGE, 0), reinterpret_cast<LRESULT>(page));
    sheet.Close();
    EXPECT_EQ(sheet.Take(), (Events{"1 destroy", "1 release"}));
}

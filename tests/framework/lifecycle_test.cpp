// What all pages share: their marks beside each other, their one load, and their tips.
#include "support/scripts.h"

#include <afxwin.h>
#include <commctrl.h>

namespace
{
using LifecycleTest = SettingsTest;

int relayed;

LRESULT CALLBACK CountRelays(HWND tips, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR)
{
    relayed += message == TTM_RELAYEVENT ? 1 : 0;
    return DefSubclassProc(tips, message, wParam, lParam);
}
}  // namespace

TEST_F(LifecycleTest, EachPageTakesAwayItsOwnMarkOnly)
{
    RunEditor([](const Sheet& sheet) {
        // Marked by its own texts while it was made, which the common control forgets.
        sheet.Select(tabs::Media);
        sheet.Select(tabs::General);
        EXPECT_TRUE(sheet.CanApply());
        sheet.Click(1006);
        sheet.TypeInFront(1127, _T("0"));
        EXPECT_TRUE(sheet.CanApply());
        sheet.Select(tabs::Media);
        sheet.TypeInFront(1119, _T("0"));
        EXPECT_FALSE(sheet.CanApply());
        sheet.Select(tabs::Waivers);
        sheet.Click(1031);
        sheet.Apply();
        EXPECT_FALSE(sheet.CanApply());
        for (const Text& tab : {tabs::Media, tabs::General, tabs::Waivers})
        {
            sheet.Select(tab);
            EXPECT_FALSE(sheet.CanApply()) << "once applied, a mark does not come back with its page";
        }
    });
}

TEST_F(LifecycleTest, PageIsLoadedOnceAndShowsItsMembersAgain)
{
    RunOnTab(tabs::HostUnderTest, [](const Sheet& sheet) {
        sheet.Retype(1160, _T("007"));
        Store(keys::Kauri, _T("aBulkTransferRetriesHUT"), Dword(9));
        sheet.Select(tabs::General);
        sheet.Select(tabs::HostUnderTest);
        EXPECT_EQ(sheet.TextOf(1160), _T("7"));
        sheet.Ok();
    });
    EXPECT_EQ(Stored(keys::Kauri, _T("aBulkTransferRetriesHUT")), Dword(7));
}

TEST_F(LifecycleTest, TipsWrapAndStayAndSeeWhatTheirWindowGets)
{
    ForEachForm([](const Form& form, const Text& name) {
        const HWND tips = TipControlOf(form.Page());
        ASSERT_EQ(tips == nullptr, name == tabs::Waivers || name == tabs::Xhci) << "these have none to say";
        if (tips == nullptr)
        {
            return;
        }
        EXPECT_EQ(LOWORD(GetWindowLongW(tips, GWL_STYLE)), 0) << "no tips in a window that is not active";
        EXPECT_EQ(SendMessageW(tips, TTM_GETMAXTIPWIDTH, 0, 0), 300);
        EXPECT_EQ(SendMessageW(tips, TTM_GETDELAYTIME, TTDT_AUTOPOP, 0), 30000);
        SetWindowSubclass(tips, CountRelays, 0, 0);
        relayed = 0;
        MSG move = {};
        move.hwnd = GetWindow(form.Page(), GW_CHILD);
        move.message = WM_MOUSEMOVE;
        CWnd::FromHandlePermanent(form.Page())->PreTranslateMessage(&move);
        EXPECT_EQ(relayed, 1);
    });
    RunEditor([](const Sheet& sheet) {
        const int count = CountTipControls();
        sheet.Select(tabs::Waivers);
        EXPECT_EQ(CountTipControls(), count + 1) << "made although nothing has a tip";
    });
}

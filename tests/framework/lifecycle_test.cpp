// What all pages share: their marks, loading once, tips, and a focus that is always on a control that takes
// keys.
#include "resource.h"
#include "support/scripts.h"

#include <afxwin.h>
#include <commctrl.h>

#include <algorithm>

using LifecycleTest = SettingsTest;

static int relayed;

static LRESULT CALLBACK CountRelays(HWND tips, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                    DWORD_PTR)
{
    relayed += message == TTM_RELAYEVENT ? 1 : 0;
    return DefSubclassProc(tips, message, wParam, lParam);
}

TEST_F(LifecycleTest, EachPageRemovesItsOwnMarkOnly)
{
    const Editor sheet(tabs::Media);
    sheet.Select(tabs::General);
    EXPECT_TRUE(sheet.CanApply()) << "MAUSB Media Settings has marked itself while it was created";
    sheet.Click(IDC_CERTIFICATION_MODE);
    sheet.TypeInFront(IDC_DISPLAY_UPDATE_TIME, _T("0"));
    EXPECT_TRUE(sheet.CanApply());
    sheet.Select(tabs::Media);
    sheet.TypeInFront(IDC_TCP_PACKET_SIZE, _T("0"));
    EXPECT_FALSE(sheet.CanApply());
    sheet.Select(tabs::Waivers);
    sheet.Click(IDC_WAIVER_BT_REMOTE_WAKE);
    sheet.Apply();
    for (const Text& tab : {tabs::Waivers, tabs::Media, tabs::General, tabs::Waivers})
    {
        sheet.Select(tab);
        EXPECT_FALSE(sheet.CanApply()) << "showing a page again does not restore a mark that was applied";
    }
}

TEST_F(LifecycleTest, PageIsLoadedOnceAndThenShowsItsMembers)
{
    const Editor sheet(tabs::HostUnderTest);
    sheet.Retype(IDC_HUT_BULK_RETRIES, _T("007"));
    Store(keys::Kauri, _T("aBulkTransferRetriesHUT"), Dword(9));
    sheet.Select(tabs::General);
    sheet.Select(tabs::HostUnderTest);
    EXPECT_EQ(sheet.TextOf(IDC_HUT_BULK_RETRIES), _T("7"));
    sheet.Ok();
    EXPECT_EQ(Stored(keys::Kauri, _T("aBulkTransferRetriesHUT")), Dword(7));
}

TEST_F(LifecycleTest, TipsWrapAndStayAndGetTheMessagesOfTheirWindow)
{
    ForEachForm([](const Form& form, const Text&) {
        const HWND tips = TipControlOf(form.Page());
        if (tips == nullptr)
        {
            return;
        }
        EXPECT_EQ(LOWORD(GetWindowLongW(tips, GWL_STYLE)), 0) << "an inactive window shows no tips";
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
}

TEST_F(LifecycleTest, ControlThatIsDisabledPassesTheFocusOn)
{
    Store(keys::Kauri, _T("NetworkLevelLog"), Dword(1));
    // A number, and the button that disables it. The refused number has the focus at that time.
    const std::pair<int, int> cases[] = {{IDC_MAX_BYTES_TO_LOG, IDC_NETWORK_LOG},
                                         {IDC_TCP_PACKET_SIZE, IDC_NETWORK_UDP},
                                         {IDC_UDP_PORT, IDC_NETWORK_TCP},
                                         {IDC_UDP_PACKET_SIZE, IDC_NETWORK_TCP}};
    const Editor sheet(tabs::Media);
    for (const auto& [number, button] : cases)
    {
        SCOPED_TRACE(number);
        sheet.Click(button == IDC_NETWORK_UDP ? IDC_NETWORK_TCP : IDC_NETWORK_UDP);
        EXPECT_EQ(CountPrompts([&, id = number] { sheet.Retype(id, {}); }), 1);
        EXPECT_EQ(CountPrompts([&, id = button] { sheet.Click(id); }), 1);
        EXPECT_FALSE(sheet.IsEnabled(number));
        EXPECT_TRUE(IsWindowEnabled(GetFocus()) && IsChild(sheet.Page(), GetFocus()));
        const std::vector<HWND> order = ControlsOf(sheet.Page());
        EXPECT_LT(std::ranges::find(order, sheet.Control(number)), std::ranges::find(order, GetFocus()));
        sheet.SetText(number, _T("7"));
    }
}

TEST_F(LifecycleTest, SheetRestoresAFocusThatIsLost)
{
    const Editor sheet;
    const HWND box = sheet.Control(IDC_CERTIFICATION_MODE);
    EXPECT_EQ(GetFocus(), box);
    sheet.Click(IDC_CERTIFICATION_MODE);
    const auto apply = [&sheet] {
        SetFocus(sheet.ApplyButton());
        sheet.Apply();
    };
    const std::function<void()> losses[] = {apply, [box] { EnableWindow(box, FALSE); },
                                            [box] { ShowWindow(box, SW_HIDE); }, [] { SetFocus(nullptr); }};
    for (const std::function<void()>& lose : losses)
    {
        ShowWindow(box, SW_SHOW);
        EnableWindow(box, TRUE);
        SetFocus(box);
        lose();
        AfxGetMainWnd()->ContinueModal();
        EXPECT_TRUE(IsWindowVisible(GetFocus()) && IsWindowEnabled(GetFocus()));
    }
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDOK) << "if the focus is nowhere";
}

// The focus is always on a control that takes keys.
#include "resource.h"
#include "support/scripts.h"

#include <afxwin.h>

#include <algorithm>

using FocusTest = SettingsTest;

TEST_F(FocusTest, ControlThatIsDisabledPassesTheFocusOn)
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

TEST_F(FocusTest, SheetRestoresAFocusThatIsLost)
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

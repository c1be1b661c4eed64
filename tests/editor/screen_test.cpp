// The sheet on a screen that is too small for it, and on a second screen.
#include "support/calls.h"
#include "support/scripts.h"

#include <prsht.h>

#include <algorithm>
#include <array>

using ScreenTest = SettingsTest;

TEST_F(ScreenTest, SheetFitsTheScreenThatItIsMovedTo)
{
    const Editor sheet;
    const HWND window = sheet.Window();
    const std::array windows = {window, sheet.Page(), sheet.ApplyButton(), GetDlgItem(window, IDOK)};
    std::array<RECT, windows.size()> natural;
    std::ranges::transform(windows, natural.begin(), PlaceOf);
    // Work areas of the second screen: a low one, a small one, and one that is high enough.
    for (const RECT& screen : {RECT{1600, 40, 2966, 768}, {1600, 40, 2300, 500}, {1600, 40, 3200, 1200}})
    {
        for (const UINT message : {WM_EXITSIZEMOVE, WM_DISPLAYCHANGE, WM_SETTINGCHANGE})
        {
            calls::secondScreen = screen;
            SetWindowPos(window, nullptr, 1650, 60, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
            SendMessageW(window, message, 0, 0);
            const RECT place = PlaceOf(window);
            EXPECT_TRUE(Contains(screen, place));
            EXPECT_EQ(place.right - place.left > natural[0].right - natural[0].left, screen.bottom == 768)
                << "room for a scroll bar";
            for (const HWND each : windows)
            {
                EXPECT_TRUE(Contains(place, PlaceOf(each)));
            }
            SetWindowPos(window, nullptr, natural[0].left, natural[0].top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
            SendMessageW(window, message, 0, 0);
            for (size_t index = 0; index < windows.size(); ++index)
            {
                const RECT after = PlaceOf(windows[index]);
                EXPECT_TRUE(EqualRect(&natural[index], &after)) << index;
            }
        }
    }
    const auto tabs = reinterpret_cast<HWND>(SendMessageW(window, PSM_GETTABCONTROL, 0, 0));
    EXPECT_GT(natural[1].top, PlaceOf(tabs).top + 10) << "the page must not cover the tabs";
    // Alt+Tab shows the big icon. A "?" in the title bar excludes the minimise and maximise boxes.
    EXPECT_NE(SendMessageW(window, WM_GETICON, ICON_BIG, 0), 0);
    EXPECT_EQ(GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_CONTEXTHELP, 0);
    SetWindowPos(window, nullptr, -50, 60, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SendMessageW(window, WM_EXITSIZEMOVE, 0, 0);
    EXPECT_EQ(PlaceOf(window).left, -50) << "a sheet of its full size stays where the user puts it";
}

// The real program on the screen that QB_SCREEN and QB_DPI describe: every control can be shown, and reached
// by keys and mouse.
#include "support/registry.h"
#include "user.h"

// Whether the window is completely inside the client areas of the windows around it, with some pixels above
// and below it, and on the screen.
static bool IsSeen(HWND window)
{
    RECT place = PlaceOf(window);
    InflateRect(&place, 0, 3);
    for (HWND outer = window; outer != nullptr;)
    {
        outer = GetAncestor(outer, GA_PARENT);
        RECT room = {};
        GetClientRect(outer, &room);
        MapWindowPoints(outer, nullptr, reinterpret_cast<POINT*>(&room), 2);
        if (outer != nullptr && !Contains(room, place))
        {
            return false;
        }
    }
    return true;
}

// Scrolls by the wheel from the top of the page to its bottom, then clicks each edit that is partly visible.
static void Roll(const Sheet& sheet)
{
    std::vector<HWND> unseen = ControlsOf(sheet.Page());
    std::erase_if(unseen, [](HWND control) { return !IsWindowVisible(control); });
    const HWND first = unseen.front();
    SendMessageW(sheet.Page(), WM_VSCROLL, SB_TOP, 0);
    for (LONG top = 0; top != PlaceOf(first).top;)
    {
        top = PlaceOf(first).top;
        std::erase_if(unseen, IsSeen);
        SendMessageW(sheet.ApplyButton(), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
        EXPECT_LT(top - PlaceOf(first).top, 100) << "the wheel scrolls by lines";
    }
    EXPECT_EQ(unseen, std::vector<HWND>());
    const LONG bottom = PlaceOf(first).top;
    SendMessageW(sheet.Page(), WM_VSCROLL, SB_PAGEUP, 0);
    const LONG pageUp = PlaceOf(first).top;
    SendMessageW(sheet.Page(), WM_VSCROLL, SB_TOP, 0);
    EXPECT_EQ(pageUp > bottom, PlaceOf(first).top > bottom) << "Page Up must scroll a page that can scroll";
    for (const HWND control : ControlsOf(sheet.Page()))
    {
        const RECT place = PlaceOf(control);
        const POINT corner = {place.left + 4, place.top + 4};
        if (IsOf(control, L"Edit") && IsWindowEnabled(control) && !IsSeen(control) &&
            WindowFromPoint(corner) == control)
        {
            SetCursorPos(corner.x, corner.y);
            mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
            EXPECT_TRUE(WaitUntil([&] { return FocusOf(control) == control; }));
            EXPECT_FALSE(IsSeen(control)) << "the page must not scroll while the button is pressed";
            mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
            EXPECT_TRUE(WaitUntil([&] { return IsSeen(control); }));
        }
    }
}

using ScreenJourney = SettingsTest;

TEST_F(ScreenJourney, AllCanBeSeenAndReached)
{
    const EditorProcess editor;
    const Sheet sheet = editor.WaitForSheet();
    SetForegroundWindow(sheet.Window());
    const RECT before = PlaceOf(sheet.Window());
    for (const WPARAM command : {SC_RESTORE, SC_MAXIMIZE, SC_RESTORE})
    {
        SCOPED_TRACE(command);
        SendMessageW(sheet.Window(), WM_SYSCOMMAND, command, 0);
        for (int page = 0; page < sheet.PageCount(); ++page)
        {
            ASSERT_TRUE(sheet.SelectIndex(page));
            SCOPED_TRACE(Printable(Form(sheet.Page()).Title()));
            ASSERT_TRUE(WaitUntil([&] { return IsWindowVisible(FocusOf(sheet.Window())); }));
            EXPECT_TRUE(IsSeen(sheet.ApplyButton()) && IsSeen(sheet.Page()));
            TabThrough(sheet.Window(), [](HWND control) {
                const HWND label = GetWindow(control, GW_HWNDPREV);
                EXPECT_TRUE(WaitUntil([&] {
                    return IsSeen(control) && (!IsOf(label, L"Static") || IsSeen(label));
                })) << GetDlgCtrlID(control);
            });
            Roll(sheet);
            ASSERT_FALSE(HasFailure()) << "each further fault would be waited for";
        }
    }
    const RECT after = PlaceOf(sheet.Window());
    EXPECT_TRUE(EqualRect(&before, &after));
}

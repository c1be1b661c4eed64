// The layout of every page and dialog with the real fonts: no text is cut, no controls overlap, and all are
// within the template's margins. QB_DPI is the resolution that the system is to have.
#include "support/scripts.h"

#include <afxdlgs.h>

#include <cstdlib>
#include <cstring>

namespace
{
struct Control
{
    HWND window;
    int id;
    RECT place;
    LONG button;  // BS_ type, -1 for none

    bool IsGroup() const { return button == BS_GROUPBOX; }
};

std::vector<Control> ShownControls(HWND dialog)
{
    std::vector<Control> controls;
    for (const HWND window : ControlsOf(dialog))
    {
        if ((GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0)
        {
            RECT place = PlaceOf(window);
            MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
            controls.push_back({window, GetDlgCtrlID(window), place, ButtonTypeOf(window)});
        }
    }
    return controls;
}

// Where controls may be: the template's size without its margin of 7 units.
RECT RoomOf(HWND dialog)
{
    RECT room = {7, 7, 7, 7};
    MapDialogRect(dialog, &room);
    RECT size = {};
    GetClientRect(dialog, &size);
    if (auto* page = dynamic_cast<CPropertyPage*>(CWnd::FromHandlePermanent(dialog)))
    {
        // The sheet gives all pages the size of the largest.
        const HRSRC found =
            FindResourceW(nullptr, page->GetPSP().pszTemplate, reinterpret_cast<LPCTSTR>(RT_DIALOG));
        const auto* header = static_cast<const BYTE*>(LockResource(LoadResource(nullptr, found)));
        WORD units[2] = {};
        std::memcpy(units, header + 22, sizeof(units));
        size = {0, 0, units[0], units[1]};
        MapDialogRect(dialog, &size);
    }
    return {room.left, room.top, size.right - room.right + 1, size.bottom - room.bottom + 1};
}

int DotsPerInch()
{
    const HDC screen = GetDC(nullptr);
    const int perInch = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return perInch;
}

// A button's text has something beside it: the frame, or the box that is checked.
void ExpectFits(const Control& control)
{
    const HDC dc = GetDC(control.window);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(control.window, WM_GETFONT, 0, 0));
    const HGDIOBJ before = SelectObject(dc, font);
    RECT text = {};
    DrawTextW(dc, Form(control.window).Title().c_str(), -1, &text, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(dc, before);
    ReleaseDC(control.window, dc);
    const int perInch = DotsPerInch();
    const bool isPush = control.button == BS_PUSHBUTTON || control.button == BS_DEFPUSHBUTTON;
    const int beside = control.button < 0  ? 0
                       : control.IsGroup() ? 18 * perInch / 96
                       : isPush            ? 8 * perInch / 96
                                           : GetSystemMetrics(SM_CXMENUCHECK) + 4 * perInch / 96;
    EXPECT_LE(text.right + beside, control.place.right - control.place.left) << control.id;
    EXPECT_LE(text.bottom, control.place.bottom - control.place.top) << control.id;
}

}  // namespace

using LayoutTest = SettingsTest;

TEST_F(LayoutTest, NothingIsCutAndNothingOverlaps)
{
    if (const char* dpi = std::getenv("QB_DPI"))
    {
        EXPECT_EQ(DotsPerInch(), std::atoi(dpi));
    }
    ForEachForm([](const Form& form, const Text&) {
        const std::vector<Control> controls = ShownControls(form.Page());
        EXPECT_GT(controls.size(), 1U);
        for (const Control& control : controls)
        {
            EXPECT_TRUE(Contains(RoomOf(form.Page()), control.place)) << control.id << " is in the margins";
            if (control.button >= 0 || IsOf(control.window, _T("Static")))
            {
                ExpectFits(control);
            }
            for (const Control& other : controls)
            {
                RECT common = {};
                EXPECT_TRUE(control.window == other.window ||
                            !IntersectRect(&common, &control.place, &other.place) ||
                            (control.IsGroup() && Contains(control.place, other.place)) ||
                            (other.IsGroup() && Contains(other.place, control.place)))
                    << control.id << " and " << other.id;
            }
        }
    });
}

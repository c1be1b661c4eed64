// The layout of every page and dialog with the real fonts: no text is cut, no controls overlap, and all
// controls are within the template's margins. QB_DPI names the resolution that the system must have.
#include "support/scripts.h"

#include <afxdlgs.h>

#include <cstdlib>
#include <cstring>

// The area for controls, on the screen: the template's size without its margin of 7 units.
static RECT RoomOf(HWND dialog)
{
    RECT margin = {7, 7, 7, 7};
    MapDialogRect(dialog, &margin);
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
    RECT room = {margin.left, margin.top, size.right - margin.right + 1, size.bottom - margin.bottom + 1};
    MapWindowPoints(dialog, nullptr, reinterpret_cast<POINT*>(&room), 2);
    return room;
}

// A button needs more width than its text: for its frame, or for the box that is checked.
static void ExpectFits(HWND control)
{
    const HDC dc = GetDC(control);
    const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    RECT text = {};
    DrawTextW(dc, Form(control).Title().c_str(), -1, &text, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(dc, before);
    ReleaseDC(control, dc);
    const LONG button = ButtonTypeOf(control);
    const bool isPush = button == BS_PUSHBUTTON || button == BS_DEFPUSHBUTTON;
    const auto perInch = static_cast<int>(GetDpiForSystem());
    const int more = button < 0              ? 0
                     : button == BS_GROUPBOX ? 18 * perInch / 96
                     : isPush                ? 8 * perInch / 96
                                             : GetSystemMetrics(SM_CXMENUCHECK) + 4 * perInch / 96;
    const RECT place = PlaceOf(control);
    EXPECT_LE(text.right + more, place.right - place.left) << GetDlgCtrlID(control);
    EXPECT_LE(text.bottom, place.bottom - place.top) << GetDlgCtrlID(control);
}

// A group box may contain a control.
static void ExpectApart(HWND control, HWND other)
{
    const RECT place = PlaceOf(control);
    const RECT otherPlace = PlaceOf(other);
    RECT common = {};
    EXPECT_TRUE(control == other || !IntersectRect(&common, &place, &otherPlace) ||
                (ButtonTypeOf(control) == BS_GROUPBOX && Contains(place, otherPlace)) ||
                (ButtonTypeOf(other) == BS_GROUPBOX && Contains(otherPlace, place)))
        << "the controls " << GetDlgCtrlID(control) << " and " << GetDlgCtrlID(other) << " overlap";
}

using LayoutTest = SettingsTest;

TEST_F(LayoutTest, NothingIsCutAndNothingOverlaps)
{
    if (const char* dpi = std::getenv("QB_DPI"))
    {
        EXPECT_EQ(GetDpiForSystem(), static_cast<UINT>(std::atoi(dpi)));
    }
    ForEachForm([](const Form& form, const Text&) {
        std::vector<HWND> controls = ControlsOf(form.Page());
        std::erase_if(controls,
                      [](HWND control) { return (GetWindowLongW(control, GWL_STYLE) & WS_VISIBLE) == 0; });
        EXPECT_GT(controls.size(), 1U);
        for (const HWND control : controls)
        {
            EXPECT_TRUE(Contains(RoomOf(form.Page()), PlaceOf(control))) << GetDlgCtrlID(control);
            if (ButtonTypeOf(control) >= 0 || IsOf(control, _T("Static")))
            {
                ExpectFits(control);
            }
            for (const HWND other : controls)
            {
                ExpectApart(control, other);
            }
        }
    });
}

// Every page and dialog as it is laid out with the real fonts: nothing cut, nothing overlapping, all within
// its template. Run at several resolutions; QB_DPI names the one that the system has been set to.
#include "support/scripts.h"

#include <cstdlib>
#include <cstring>

namespace
{
struct Control
{
    HWND window;
    int id;
    DWORD style;
    RECT place;
    bool isButton;
    bool isStatic;

    DWORD Kind() const { return style & BS_TYPEMASK; }
    bool IsGroup() const { return isButton && Kind() == BS_GROUPBOX; }
};

std::vector<Control> ShownControls(HWND dialog)
{
    std::vector<Control> controls;
    for (const HWND window : ControlsOf(dialog))
    {
        const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
        if ((style & WS_VISIBLE) != 0)
        {
            RECT place = {};
            GetWindowRect(window, &place);
            MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
            controls.push_back({window, GetDlgCtrlID(window), style, place, IsOf(window, _T("Button")),
                                IsOf(window, _T("Static"))});
        }
    }
    return controls;
}

SIZE TextSize(HWND window)
{
    const HDC dc = GetDC(window);
    const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)));
    RECT size = {};
    DrawTextW(dc, Form(window).Title().c_str(), -1, &size, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(dc, before);
    ReleaseDC(window, dc);
    return {size.right, size.bottom};
}

// Where controls may stand: the template's size less its margin of 7 units.
RECT RoomOf(HWND dialog, int id)
{
    const HRSRC resource = FindResourceW(nullptr, MAKEINTRESOURCEW(id), reinterpret_cast<LPCTSTR>(RT_DIALOG));
    const auto* header = static_cast<const BYTE*>(LockResource(LoadResource(nullptr, resource)));
    WORD units[2] = {};
    std::memcpy(units, header + 22, sizeof(units));
    RECT size = {7, 7, units[0], units[1]};
    MapDialogRect(dialog, &size);
    return {size.left, size.top, size.right - size.left + 1, size.bottom - size.top + 1};
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
    const SIZE text = TextSize(control.window);
    const int perInch = DotsPerInch();
    int beside = 0;
    if (control.isButton)
    {
        const bool isPush = control.Kind() == BS_PUSHBUTTON || control.Kind() == BS_DEFPUSHBUTTON;
        beside = control.IsGroup() ? 18 * perInch / 96
                 : isPush          ? 8 * perInch / 96
                                   : GetSystemMetrics(SM_CXMENUCHECK) + 4 * perInch / 96;
    }
    EXPECT_LE(text.cx + beside, control.place.right - control.place.left) << control.id;
    EXPECT_LE(text.cy, control.place.bottom - control.place.top) << control.id;
}

bool Contains(const RECT& outer, const RECT& inner)
{
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

void CheckLayout(HWND dialog, int templateId)
{
    SCOPED_TRACE(Printable(Form(dialog).Title()));
    const std::vector<Control> controls = ShownControls(dialog);
    EXPECT_GT(controls.size(), 1U);
    for (const Control& control : controls)
    {
        EXPECT_TRUE(Contains(RoomOf(dialog, templateId), control.place))
            << control.id << " leaves the margins";
        if (control.isButton || control.isStatic)
        {
            ExpectFits(control);
        }
        for (const Control& other : controls)
        {
            RECT common = {};
            if (control.window != other.window && IntersectRect(&common, &control.place, &other.place))
            {
                EXPECT_TRUE((control.IsGroup() && Contains(control.place, other.place)) ||
                            (other.IsGroup() && Contains(other.place, control.place)))
                    << control.id << " and " << other.id;
            }
        }
    }
}
}  // namespace

using LayoutTest = SettingsTest;

TEST_F(LayoutTest, NothingIsCutAndNothingOverlaps)
{
    const char* asked = std::getenv("QB_DPI");
    EXPECT_EQ(DotsPerInch(), asked != nullptr ? std::atoi(asked) : 96);
    const std::map<Text, int> templates = {
        {tabs::General, 130},       {tabs::Drivers, 132},      {tabs::Chapter9, 140},
        {tabs::Waivers, 131},       {tabs::Xhci, 102},         {tabs::Identity, 136},
        {tabs::Media, 133},         {tabs::Protocol, 135},     {tabs::HostUnderTest, 137},
        {titles::AdvancedTCP, 104}, {titles::ClientPorts, 143}};
    ForEachForm(
        [&templates](const Form& form, const Text& name) { CheckLayout(form.Page(), templates.at(name)); });
}

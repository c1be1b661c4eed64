// Every page and dialog as it is laid out with the real fonts: nothing cut, nothing overlapping, all within
// its template. Run at several resolutions; QB_DPI names the one that the system has been set to.
#include "resource.h"
#include "support/form.h"
#include "support/settings_test.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace
{
// Room that a control needs besides its text, in pixels at 96 per inch.
constexpr int ButtonFrame = 8;
constexpr int GroupFrame = 18;
constexpr int CheckGap = 4;

struct Control
{
    HWND window;
    int id;
    Text text;
    DWORD style;
    bool isButton;
    bool isStatic;
    RECT place;

    bool IsGroup() const { return isButton && (style & BS_TYPEMASK) == BS_GROUPBOX; }
    bool IsPushButton() const
    {
        return isButton &&
               ((style & BS_TYPEMASK) == BS_PUSHBUTTON || (style & BS_TYPEMASK) == BS_DEFPUSHBUTTON);
    }
};

std::ostream& operator<<(std::ostream& out, const Control& control)
{
    return out << "control " << control.id << " \"" << Printable(control.text) << "\" at "
               << control.place.left << ',' << control.place.top << " to " << control.place.right << ','
               << control.place.bottom;
}

std::vector<Control> ShownControls(HWND dialog)
{
    std::vector<Control> controls;
    for (HWND window = GetWindow(dialog, GW_CHILD); window != nullptr;
         window = GetWindow(window, GW_HWNDNEXT))
    {
        const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
        if ((style & WS_VISIBLE) == 0)
        {
            continue;
        }
        TCHAR name[32] = {};
        GetClassNameW(window, name, 32);
        Control control = {window, GetDlgCtrlID(window), Form(window).Title(), style, false, false, {}};
        control.isButton = _tcsicmp(name, _T("Button")) == 0;
        control.isStatic = _tcsicmp(name, _T("Static")) == 0;
        GetWindowRect(window, &control.place);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&control.place), 2);
        controls.push_back(control);
    }
    return controls;
}

SIZE TextSize(const Control& control)
{
    const HDC dc = GetDC(control.window);
    const HGDIOBJ before =
        SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(control.window, WM_GETFONT, 0, 0)));
    RECT size = {};
    DrawTextW(dc, control.text.c_str(), -1, &size, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(dc, before);
    ReleaseDC(control.window, dc);
    return {size.right, size.bottom};
}

// A template's size in pixels, and its margin of 7 units.
SIZE TemplateSize(HWND dialog, int id, SIZE* margin)
{
    const HRSRC resource = FindResourceW(nullptr, MAKEINTRESOURCEW(id), RT_DIALOG);
    const auto* header = static_cast<const BYTE*>(LockResource(LoadResource(nullptr, resource)));
    WORD units[2] = {};
    std::memcpy(units, header + 22, sizeof(units));
    RECT size = {7, 7, units[0], units[1]};
    MapDialogRect(dialog, &size);
    *margin = {size.left, size.top};
    return {size.right, size.bottom};
}

void CheckFits(const Control& control, int perInch)
{
    const SIZE text = TextSize(control);
    const LONG width = control.place.right - control.place.left;
    int frame = 0;
    if (control.IsGroup())
    {
        frame = GroupFrame * perInch / 96;
    }
    else if (control.IsPushButton())
    {
        frame = ButtonFrame * perInch / 96;
    }
    else if (control.isButton)
    {
        frame = GetSystemMetrics(SM_CXMENUCHECK) + CheckGap * perInch / 96;
    }
    EXPECT_LE(text.cx + frame, width) << control;
    EXPECT_LE(text.cy, control.place.bottom - control.place.top) << control;
}

bool Overlap(const RECT& left, const RECT& right)
{
    RECT common;
    return IntersectRect(&common, &left, &right) != FALSE;
}

bool Contains(const RECT& outer, const RECT& inner)
{
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

int DotsPerInch()
{
    const HDC screen = GetDC(nullptr);
    const int perInch = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return perInch;
}

void CheckLayout(HWND dialog, int templateId)
{
    SCOPED_TRACE(Printable(Form(dialog).Title()));
    const int perInch = DotsPerInch();
    SIZE margin = {};
    const SIZE size = TemplateSize(dialog, templateId, &margin);
    const RECT room = {margin.cx, margin.cy, size.cx - margin.cx + 1, size.cy - margin.cy + 1};
    const std::vector<Control> controls = ShownControls(dialog);
    EXPECT_GT(controls.size(), 1U);
    for (const Control& control : controls)
    {
        EXPECT_TRUE(Contains(room, control.place)) << control << " leaves the margins";
        if (control.isButton || control.isStatic)
        {
            CheckFits(control, perInch);
        }
        for (const Control& other : controls)
        {
            if (control.window < other.window && Overlap(control.place, other.place))
            {
                EXPECT_TRUE((control.IsGroup() && Contains(control.place, other.place)) ||
                            (other.IsGroup() && Contains(other.place, control.place)))
                    << control << " and " << other;
            }
        }
    }
}
}  // namespace

using LayoutTest = SettingsTest;

TEST_F(LayoutTest, NothingIsCutAndNothingOverlaps)
{
    const std::map<Text, int> templates = {
        {tabs::General, 130}, {tabs::Drivers, 132},  {tabs::Chapter9, 140},
        {tabs::Waivers, 131}, {tabs::Xhci, 102},     {tabs::Identity, 136},
        {tabs::Media, 133},   {tabs::Protocol, 135}, {tabs::HostUnderTest, 137}};
    const char* asked = std::getenv("QB_DPI");
    EXPECT_EQ(DotsPerInch(), asked != nullptr ? std::atoi(asked) : 96);
    InstallTools(AllTools);
    RunEditor(
        [&templates](Sheet& sheet)
        {
            EXPECT_EQ(sheet.Tabs().size(), templates.size());
            for (const Text& tab : sheet.Tabs())
            {
                SCOPED_TRACE(Printable(tab));
                ASSERT_TRUE(templates.contains(tab));
                sheet.Select(tab);
                CheckLayout(sheet.Page(), templates.at(tab));
            }
            sheet.Select(tabs::Media);
            WhenOpened(titles::ClientPorts, [](Form& form) { CheckLayout(form.Window(), 143); });
            sheet.Click(1190);
            WhenOpened(titles::AdvancedTCP, [](Form& form) { CheckLayout(form.Window(), 104); });
            sheet.Click(1139);
        });
}

// Radio buttons behave as on Windows, where a button checks itself when it gets the focus.
#include "support/scripts.h"

#include <utility>

namespace
{
WNDCLASSW systemButton;

// Makes a button behave as on Windows: BM_SETCHECK changes no other button, and an unchecked radio button
// that gets the focus by anything but a click clicks itself. No document says that the tab stop moves.
LRESULT CALLBACK WindowsButton(HWND button, UINT message, WPARAM wParam, LPARAM lParam)
{
    static bool clicking = false;
    const LONG style = GetWindowLongW(button, GWL_STYLE);
    const bool isRadio = (style & BS_TYPEMASK) == BS_AUTORADIOBUTTON;
    const bool outer = std::exchange(clicking, clicking || message == BM_CLICK);
    if (isRadio && message == BM_SETCHECK && !clicking)
    {
        SetWindowLongW(button, GWL_STYLE, (style & ~BS_TYPEMASK) | BS_RADIOBUTTON);
    }
    const LRESULT result = CallWindowProcW(systemButton.lpfnWndProc, button, message, wParam, lParam);
    clicking = outer;
    if (isRadio && message == BM_SETCHECK)
    {
        SetWindowLongW(button, GWL_STYLE, style);
    }
    if (isRadio && message == WM_SETFOCUS && !clicking &&
        SendMessageW(button, BM_GETCHECK, 0, 0) == BST_UNCHECKED)
    {
        SendMessageW(button, BM_CLICK, 0, 0);
    }
    return result;
}

// The checked button of the two must be the tab stop.
void ExpectShown(const Sheet& sheet, const Setting& radio, const StoredValue& value)
{
    radio.ExpectShown(sheet, value);
    for (const int id : {radio.id, radio.secondId})
    {
        EXPECT_EQ((GetWindowLongW(sheet.Control(id), GWL_STYLE) & WS_TABSTOP) != 0,
                  sheet.CheckOf(id) == BST_CHECKED);
    }
}

using RadioTest = SettingsTest;
}  // namespace

TEST_F(RadioTest, TabGoesThroughThePageWithoutChangingAGroup)
{
    // A class of the program takes precedence over the system's class of that name. Windows needs none.
    GetClassInfoW(nullptr, _T("Button"), &systemButton);
    WNDCLASSW ours = systemButton;
    ours.style &= ~static_cast<UINT>(CS_GLOBALCLASS);
    ours.lpfnWndProc = WindowsButton;
    ours.hInstance = GetModuleHandleW(nullptr);
    ours.lpszClassName = _T("Button");
    ASSERT_TRUE(!IsWine() || RegisterClassW(&ours) != 0);
    for (const Setting& radio : AllSettings())
    {
        for (const bool isFirst : {true, false})
        {
            if (radio.kind != Setting::Kind::Radio)
            {
                continue;
            }
            const StoredValue& stored = isFirst ? radio.initial : radio.changed;
            Store(radio.key, radio.name, stored);
            const Editor sheet(radio.tab);
            ExpectShown(sheet, radio, stored);
            const bool marked = sheet.CanApply();
            for (int steps = 0; steps < 30; ++steps)
            {
                SetFocus(GetNextDlgTabItem(sheet.Page(), GetFocus(), FALSE));
            }
            EXPECT_EQ(sheet.CanApply(), marked);
            for (const StoredValue& value : {isFirst ? radio.changed : radio.initial, stored})
            {
                radio.Enter(sheet, value);
                ExpectShown(sheet, radio, value);
            }
            sheet.Ok();
            EXPECT_EQ(Stored(radio.key, radio.name), stored);
        }
    }
    UnregisterClassW(_T("Button"), GetModuleHandleW(nullptr));
}

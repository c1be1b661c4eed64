// Radio buttons as Windows has them, which check themselves on getting the focus.
#include "support/scripts.h"

#include <utility>

namespace
{
WNDCLASSW systemButton;

LONG StyleOf(HWND window)
{
    return GetWindowLongW(window, GWL_STYLE);
}

// As Windows' buttons: a program that checks one touches no other, and an unchecked radio button that gets
// the focus otherwise than by a click clicks itself. That the tab stop follows is documented nowhere.
LRESULT CALLBACK WindowsButton(HWND button, UINT message, WPARAM wParam, LPARAM lParam)
{
    static bool clicking = false;
    const LONG style = StyleOf(button);
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

using RadioTest = SettingsTest;
}  // namespace

TEST_F(RadioTest, TabGoesThroughThePageWithoutChangingAGroup)
{
    // A program's own class goes before the system's of the same name.
    GetClassInfoW(nullptr, _T("Button"), &systemButton);
    WNDCLASSW ours = systemButton;
    ours.style &= ~static_cast<UINT>(CS_GLOBALCLASS);
    ours.lpfnWndProc = WindowsButton;
    ours.hInstance = GetModuleHandleW(nullptr);
    ours.lpszClassName = _T("Button");
    ASSERT_NE(RegisterClassW(&ours), 0);
    std::vector<Setting> radios = AllSettings();
    std::erase_if(radios, [](const Setting& setting) { return setting.kind != Setting::Kind::Radio; });
    for (const Setting& radio : radios)
    {
        for (const auto& [stored, other] :
             {std::pair{radio.initial, radio.changed}, {radio.changed, radio.initial}})
        {
            Store(radio.key, radio.name, stored);
            RunOnTab(radio.tab, [&, &was = stored, &is = other](const Sheet& sheet) {
                // The checked one of the two is the tab stop.
                const auto expectShown = [&](const StoredValue& value) {
                    radio.ExpectShown(sheet, value);
                    for (const int id : {radio.control, radio.control + 1})
                    {
                        EXPECT_EQ((StyleOf(sheet.Control(id)) & WS_TABSTOP) != 0,
                                  sheet.CheckOf(id) == BST_CHECKED);
                    }
                };
                expectShown(was);
                const bool marked = sheet.CanApply();
                for (int steps = 0; steps < 30; ++steps)
                {
                    SetFocus(GetNextDlgTabItem(sheet.Page(), GetFocus(), FALSE));
                }
                EXPECT_EQ(sheet.CanApply(), marked);
                radio.Enter(sheet, is);
                expectShown(is);
                radio.Enter(sheet, was);
                expectShown(was);
                sheet.Ok();
            });
            EXPECT_EQ(Stored(radio.key, radio.name), stored);
        }
    }
    UnregisterClassW(_T("Button"), GetModuleHandleW(nullptr));
}

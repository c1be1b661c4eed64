#include "user.h"

#include "support/registry.h"

void Press(int key)
{
    // On some keyboards a digit's key types another character.
    const bool isDigit = key >= '0' && key <= '9';
    INPUT inputs[2] = {};
    for (INPUT& input : inputs)
    {
        input.type = INPUT_KEYBOARD;
        (isDigit ? input.ki.wScan : input.ki.wVk) = static_cast<WORD>(key);
        input.ki.dwFlags = isDigit ? KEYEVENTF_UNICODE : 0;
    }
    inputs[1].ki.dwFlags |= KEYEVENTF_KEYUP;
    SendInput(2, inputs, sizeof(INPUT));
}

HWND FocusOf(HWND window)
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info.hwndFocus;
}

void TabThrough(HWND window, const std::function<void(HWND)>& visit)
{
    const HWND first = FocusOf(window);
    HWND focus = first;
    for (int stops = 0; stops == 0 || focus != first; ++stops)
    {
        ASSERT_LT(stops, 50) << "Tab does not return to the first control";
        visit(focus);
        ASSERT_FALSE(testing::Test::HasFailure()) << "each further failure would take its time-out";
        Press(VK_TAB);
        ASSERT_TRUE(WaitUntil([&] { return FocusOf(window) != focus; })) << GetDlgCtrlID(focus);
        focus = FocusOf(window);
    }
}

void OpenPage(const Sheet& sheet, const Text& title)
{
    for (int index = 0; sheet.SelectIndex(index) && Form(sheet.Page()).Title() != title; ++index)
    {
    }
    ASSERT_EQ(Form(sheet.Page()).Title(), title);
}

Cover::Cover()
    : m_window(CreateWindowExW(0, L"STATIC", L"Cover", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1200, 900,
                               nullptr, nullptr, nullptr, nullptr))
{
    SetForegroundWindow(m_window);
    EXPECT_EQ(GetForegroundWindow(), m_window);
}

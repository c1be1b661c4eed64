#include "support/controls.h"

// The window stays hidden, because Wine takes seconds to destroy one that was shown; focus and capture do not
// mind.
void ControlTest::SetUp()
{
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = _T("QBControlTest");
    RegisterClassExW(&windowClass);
    m_parent = CreateWindowExW(0, windowClass.lpszClassName, _T("Controls"), WS_POPUP, 0, 0, 400, 400,
                               nullptr, nullptr, windowClass.hInstance, nullptr);
    ASSERT_NE(m_parent, nullptr);
    SetWindowLongPtrW(m_parent, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetActiveWindow(m_parent);
    SetFocus(m_parent);
}

void ControlTest::TearDown()
{
    m_handler = nullptr;
    Hold(0);
    DestroyWindow(m_parent);
}

LRESULT CALLBACK ControlTest::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* test = reinterpret_cast<ControlTest*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_COMMAND && lParam != 0 && test != nullptr)
    {
        test->m_newIds.push_back(LOWORD(wParam));
        test->m_codes.push_back(HIWORD(wParam));
        if (test->m_handler)
        {
            test->m_handler(reinterpret_cast<HWND>(lParam), HIWORD(wParam));
        }
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

HWND ControlTest::Make(LPCTSTR className, DWORD style, LPCTSTR text, int id) const
{
    HWND control = CreateWindowExW(0, className, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 100, 60, m_parent,
                                   reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                   GetModuleHandleW(nullptr), nullptr);
    EXPECT_NE(control, nullptr);
    return control;
}

LRESULT ControlTest::Send(HWND control, UINT message, WPARAM wParam, LPARAM lParam)
{
    return SendMessageW(control, message, wParam, lParam);
}

LRESULT ControlTest::Send(HWND control, UINT message, WPARAM wParam, LPCTSTR text)
{
    return SendMessageW(control, message, wParam, reinterpret_cast<LPARAM>(text));
}

void ControlTest::Key(HWND control, int key)
{
    SendMessageW(control, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    SendMessageW(control, WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xC0000001));
}

void ControlTest::Type(HWND control, LPCTSTR characters)
{
    for (; *characters != 0; ++characters)
    {
        SendMessageW(control, WM_CHAR, static_cast<WPARAM>(*characters), 1);
    }
}

void ControlTest::Hold(int key)
{
    BYTE keys[256] = {};
    if (key != 0)
    {
        keys[key] = 0x80;
    }
    SetKeyboardState(keys);
}

ControlTest::Text ControlTest::TextOf(HWND control)
{
    Text text(static_cast<size_t>(GetWindowTextLengthW(control)) + 1, _T('#'));
    text.resize(static_cast<size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
    return text;
}

bool ControlTest::HasTabStop(HWND control)
{
    return (GetWindowLongPtrW(control, GWL_STYLE) & WS_TABSTOP) != 0;
}

ControlTest::Codes ControlTest::Told()
{
    m_ids = std::move(m_newIds);
    m_newIds.clear();
    Codes codes = std::move(m_codes);
    m_codes.clear();
    return codes;
}

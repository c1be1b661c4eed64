#include "control.h"

#include "commctrl.h"

namespace headless
{
LRESULT Control::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_SETFONT:
        m_font = wParam;
        return 0;
    case WM_GETFONT:
        return static_cast<LRESULT>(m_font);
    default:
        return DefWindowProcW(m_window, message, wParam, lParam);
    }
}

bool Control::Notify(int code) const
{
    HWND window = m_window;
    SendMessageW(GetParent(window), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window), code),
                 reinterpret_cast<LPARAM>(window));
    return IsWindow(window);
}

bool Control::TakeFocus() const
{
    HWND window = m_window;
    SetFocus(window);
    return IsWindow(window);
}

bool Control::Release() const
{
    HWND window = m_window;
    if (GetCapture() == window)
    {
        ReleaseCapture();
    }
    return IsWindow(window);
}

void RegisterControls()
{
    RegisterButton();
    RegisterStatic();
    RegisterEdit();
    RegisterListBox();
    RegisterComboBox();
    RegisterTabControl();
    RegisterToolTips();
}
}  // namespace headless

// The classes are there in any case.
BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* classes)
{
    return classes != nullptr && classes->dwSize == sizeof(*classes);
}

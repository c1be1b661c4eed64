// What all controls have in common: one object for each window, reached by the window's extra bytes.
#pragma once

#include "windows.h"

namespace headless
{
// Everything that reaches the parent, or moves the focus or the capture, may run code that destroys the
// control and with it the object. Such a call tells whether the control still stands; if not, the caller
// returns at once and touches no member.
class Control
{
public:
    explicit Control(HWND window) : m_window(window) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    virtual LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);

protected:
    HWND Window() const { return m_window; }
    DWORD Style() const { return static_cast<DWORD>(GetWindowLongPtrW(m_window, GWL_STYLE)); }
    void SetStyle(DWORD style) { SetWindowLongPtrW(m_window, GWL_STYLE, static_cast<LONG_PTR>(style)); }

    [[nodiscard]] bool Notify(int code) const;
    [[nodiscard]] bool TakeFocus() const;
    [[nodiscard]] bool Release() const;

private:
    HWND m_window;
    WPARAM m_font = 0;
};

inline bool IsKeyDown(int key)
{
    return GetKeyState(key) < 0;
}

inline int MouseX(LPARAM lParam)
{
    return static_cast<short>(LOWORD(lParam));
}

inline int MouseY(LPARAM lParam)
{
    return static_cast<short>(HIWORD(lParam));
}

template <class T>
LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE)
    {
        SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(new T(window)));
    }
    T* control = reinterpret_cast<T*>(GetWindowLongPtrW(window, 0));
    if (control != nullptr && message == WM_NCDESTROY)
    {
        SetWindowLongPtrW(window, 0, 0);
        delete control;
        control = nullptr;
    }
    return control == nullptr ? DefWindowProcW(window, message, wParam, lParam)
                              : control->Handle(message, wParam, lParam);
}

template <class T>
void RegisterControl(LPCWSTR className)
{
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.style = CS_GLOBALCLASS | CS_DBLCLKS;
    windowClass.lpfnWndProc = ControlProcedure<T>;
    windowClass.cbWndExtra = sizeof(LONG_PTR);
    windowClass.lpszClassName = className;
    RegisterClassExW(&windowClass);
}

// Registers the classes of all controls, by the functions below. To be called once, before a window is made.
void RegisterControls();
void RegisterButton();
void RegisterStatic();
void RegisterEdit();
void RegisterListBox();
void RegisterComboBox();
void RegisterTabControl();
void RegisterToolTips();
}  // namespace headless

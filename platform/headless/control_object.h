// A control as an object: made with its window, reached by the window's extra bytes, and gone with it.
#pragma once

#include <string>

#include "windows.h"

namespace headless
{
// T has a constructor from HWND and LRESULT Handle(UINT, WPARAM, LPARAM).
template <class T>
LRESULT CALLBACK ObjectProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE)
    {
        SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(new T(window)));
    }
    T* object = reinterpret_cast<T*>(GetWindowLongPtrW(window, 0));
    if (object != nullptr && message == WM_NCDESTROY)
    {
        SetWindowLongPtrW(window, 0, 0);
        delete object;
        object = nullptr;
    }
    return object == nullptr ? DefWindowProcW(window, message, wParam, lParam)
                             : object->Handle(message, wParam, lParam);
}

template <class T>
void RegisterObject(LPCWSTR className)
{
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.style = CS_GLOBALCLASS | CS_DBLCLKS;
    windowClass.lpfnWndProc = ObjectProcedure<T>;
    windowClass.cbWndExtra = sizeof(LONG_PTR);
    windowClass.lpszClassName = className;
    RegisterClassExW(&windowClass);
}

// Copies what fits with its terminator; nothing for a buffer without room.
inline void CopyText(LPWSTR buffer, std::size_t size, const std::u16string& text)
{
    if (buffer != nullptr && size > 0)
    {
        buffer[text.copy(buffer, size - 1)] = 0;
    }
}

void RegisterToolTips();
void RegisterTabControl();
}  // namespace headless

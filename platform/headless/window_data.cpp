// What a window carries: its numbers, text and procedure.
#include <cstring>

#include "unicode.h"
#include "window.h"

using namespace headless;

namespace
{
// The two names of one number differ only in how wide it is read and written.
template <class Number>
Number GetExtra(const Window& window, int index)
{
    Number value = 0;
    const auto offset = static_cast<std::size_t>(index);
    if (offset + sizeof(value) > window.extra.size())
    {
        SetLastError(ERROR_INVALID_INDEX);
        return 0;
    }
    std::memcpy(&value, window.extra.data() + offset, sizeof(value));
    return value;
}

template <class Number>
Number SetExtra(Window& window, int index, Number value)
{
    const auto previous = GetExtra<Number>(window, index);
    const auto offset = static_cast<std::size_t>(index);
    if (offset + sizeof(value) <= window.extra.size())
    {
        std::memcpy(window.extra.data() + offset, &value, sizeof(value));
    }
    return previous;
}

LONG_PTR GetNumber(const Window& window, int index)
{
    switch (index)
    {
    case GWLP_WNDPROC:
        return reinterpret_cast<LONG_PTR>(window.procedure);
    case GWLP_HINSTANCE:
        return reinterpret_cast<LONG_PTR>(window.instance);
    case GWLP_HWNDPARENT:
        return reinterpret_cast<LONG_PTR>(IsTopLevel(window) ? window.owner : window.parent);
    case GWLP_ID:
        return window.id;
    case GWLP_USERDATA:
        return window.userData;
    case GWL_STYLE:
        return static_cast<LONG>(window.style);
    case GWL_EXSTYLE:
        return static_cast<LONG>(window.exStyle);
    default:
        SetLastError(ERROR_INVALID_INDEX);
        return 0;
    }
}

LONG_PTR ChangeStyle(HWND window, int index, DWORD value)
{
    const auto previous = static_cast<DWORD>(GetNumber(*Find(window), index));
    STYLESTRUCT styles = {previous, value};
    Send(window, WM_STYLECHANGING, static_cast<WPARAM>(index), ToParam(&styles));
    if (Window* found = Find(window))
    {
        (index == GWL_STYLE ? found->style : found->exStyle) = styles.styleNew;
        Send(window, WM_STYLECHANGED, static_cast<WPARAM>(index), ToParam(&styles));
    }
    return static_cast<LONG>(previous);
}

LONG_PTR SetNumber(Window& window, int index, LONG_PTR value)
{
    const LONG_PTR previous = GetNumber(window, index);
    switch (index)
    {
    case GWLP_WNDPROC:
        window.procedure = reinterpret_cast<WNDPROC>(value);
        break;
    case GWLP_HINSTANCE:
        window.instance = reinterpret_cast<HINSTANCE>(value);
        break;
    case GWLP_HWNDPARENT:
        if (IsTopLevel(window))
        {
            window.owner = reinterpret_cast<HWND>(value);
        }
        else
        {
            SetParent(window.handle, reinterpret_cast<HWND>(value));
        }
        break;
    case GWLP_ID:
        window.id = value;
        break;
    case GWLP_USERDATA:
        window.userData = value;
        break;
    case GWL_STYLE:
    case GWL_EXSTYLE:
        return ChangeStyle(window.handle, index, static_cast<DWORD>(value));
    default:
        break;
    }
    return previous;
}
}  // namespace

LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index)
{
    const Window* found = Resolve(window);
    if (found == nullptr)
    {
        return 0;
    }
    return index < 0 ? GetNumber(*found, index) : GetExtra<LONG_PTR>(*found, index);
}

LONG WINAPI GetWindowLongW(HWND window, int index)
{
    const Window* found = Resolve(window);
    if (found == nullptr)
    {
        return 0;
    }
    return index < 0 ? static_cast<LONG>(GetNumber(*found, index)) : GetExtra<LONG>(*found, index);
}

LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value)
{
    Window* found = Resolve(window);
    if (found == nullptr)
    {
        return 0;
    }
    return index < 0 ? SetNumber(*found, index, value) : SetExtra<LONG_PTR>(*found, index, value);
}

LONG WINAPI SetWindowLongW(HWND window, int index, LONG value)
{
    Window* found = Resolve(window);
    if (found == nullptr)
    {
        return 0;
    }
    return index < 0 ? static_cast<LONG>(SetNumber(*found, index, value))
                     : SetExtra<LONG>(*found, index, value);
}

LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return procedure(window, message, wParam, lParam);
}

BOOL WINAPI SetWindowTextW(HWND window, LPCWSTR text)
{
    if (Resolve(window) == nullptr)
    {
        return FALSE;
    }
    return Send(window, WM_SETTEXT, 0, ToParam(text)) > 0;
}

int WINAPI GetWindowTextW(HWND window, LPWSTR text, int size)
{
    if (text == nullptr || size <= 0)
    {
        return 0;
    }
    text[0] = 0;
    return Resolve(window) == nullptr
               ? 0
               : static_cast<int>(Send(window, WM_GETTEXT, static_cast<WPARAM>(size), ToParam(text)));
}

int WINAPI GetWindowTextLengthW(HWND window)
{
    return Resolve(window) == nullptr ? 0 : static_cast<int>(Send(window, WM_GETTEXTLENGTH));
}

// Where windows are, whether they show and whether they take input.
#include <algorithm>

#include "window.h"

namespace headless
{
namespace
{
constexpr UINT Unchanged = SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER;

// How far the client area lies within the window, to the left and top and to the right and bottom.
RECT Frame(DWORD style, DWORD exStyle)
{
    RECT frame = {};
    AdjustWindowRectEx(&frame, style, FALSE, exStyle);
    return frame;
}

RECT Offset(RECT rect, POINT by)
{
    OffsetRect(&rect, by.x, by.y);
    return rect;
}

POINT ClientOrigin(HWND window)
{
    const Window* found = Find(window);
    if (found == nullptr || found == &Desktop())
    {
        return {};
    }
    const RECT client = ClientScreenRect(*found);
    return {client.left, client.top};
}

// Leaves only the flags of what will really change.
UINT ReduceFlags(const Window& window, const WINDOWPOS& position)
{
    UINT flags = position.flags;
    const bool visible = (window.style & WS_VISIBLE) != 0;
    const RECT& rect = window.rect;
    if (position.x == rect.left && position.y == rect.top)
    {
        flags |= SWP_NOMOVE;
    }
    if (position.cx == rect.right - rect.left && position.cy == rect.bottom - rect.top)
    {
        flags |= SWP_NOSIZE;
    }
    flags &= ~static_cast<UINT>(visible ? SWP_SHOWWINDOW : SWP_HIDEWINDOW);
    if (!IsChildStyle(window.style) && (flags & (SWP_NOACTIVATE | SWP_HIDEWINDOW)) == 0 &&
        window.handle != InputState().active)
    {
        flags &= ~static_cast<UINT>(SWP_NOZORDER);
    }
    return flags;
}

void ApplyOrder(Window& window, const WINDOWPOS& position)
{
    if (position.hwndInsertAfter == HWND_TOP || position.hwndInsertAfter == HWND_TOPMOST ||
        position.hwndInsertAfter == HWND_NOTOPMOST)
    {
        if (position.hwndInsertAfter != HWND_TOP)
        {
            window.exStyle = position.hwndInsertAfter == HWND_TOPMOST ? window.exStyle | WS_EX_TOPMOST
                                                                      : window.exStyle & ~WS_EX_TOPMOST;
        }
        Raise(window.handle);
        return;
    }
    const Window* above = Find(position.hwndInsertAfter);
    if (position.hwndInsertAfter != HWND_BOTTOM &&
        (above == nullptr || above == &window || above->parent != window.parent))
    {
        return;
    }
    Unlink(window);
    Link(window, window.parent, position.hwndInsertAfter);
}

void Apply(Window& window, const WINDOWPOS& position)
{
    if ((position.flags & SWP_NOMOVE) == 0)
    {
        OffsetRect(&window.rect, position.x - window.rect.left, position.y - window.rect.top);
    }
    if ((position.flags & SWP_NOSIZE) == 0)
    {
        window.rect.right = window.rect.left + std::max(position.cx, 0);
        window.rect.bottom = window.rect.top + std::max(position.cy, 0);
    }
    if ((position.flags & SWP_NOZORDER) == 0)
    {
        ApplyOrder(window, position);
    }
    if ((position.flags & SWP_SHOWWINDOW) != 0)
    {
        window.style |= WS_VISIBLE;
    }
    if ((position.flags & SWP_HIDEWINDOW) != 0)
    {
        window.style &= ~WS_VISIBLE;
    }
}

struct ShowEffect
{
    UINT flags;
    DWORD state;  // WS_MINIMIZE, WS_MAXIMIZE or neither
    bool keepState;
};

ShowEffect EffectOf(int command)
{
    constexpr UINT show = SWP_SHOWWINDOW;
    switch (command)
    {
    case SW_HIDE:
        return {SWP_HIDEWINDOW | SWP_NOACTIVATE, 0, true};
    case SW_SHOWMINIMIZED:
        return {show, WS_MINIMIZE, false};
    case SW_MINIMIZE:
    case SW_FORCEMINIMIZE:
    case SW_SHOWMINNOACTIVE:
        return {show | SWP_NOACTIVATE, WS_MINIMIZE, false};
    case SW_SHOWMAXIMIZED:
        return {show, WS_MAXIMIZE, false};
    case SW_SHOWNA:
        return {show | SWP_NOACTIVATE, 0, true};
    case SW_SHOWNOACTIVATE:
        return {show | SWP_NOACTIVATE, 0, false};
    case SW_SHOW:
        return {show, 0, true};
    default:
        return {show, 0, false};
    }
}
}  // namespace

RECT ScreenRect(const Window& window)
{
    return Offset(window.rect, ClientOrigin(window.parent));
}

RECT ClientScreenRect(const Window& window)
{
    RECT rect = ScreenRect(window);
    const RECT frame = Frame(window.style, window.exStyle);
    rect = {rect.left - frame.left, rect.top - frame.top, rect.right - frame.right,
            rect.bottom - frame.bottom};
    rect.right = std::max(rect.left, rect.right);
    rect.bottom = std::max(rect.top, rect.bottom);
    return rect;
}
}  // namespace headless

using namespace headless;

BOOL WINAPI GetWindowRect(HWND window, LPRECT rect)
{
    const Window* found = Resolve(window);
    if (found == nullptr)
    {
        return FALSE;
    }
    *rect = ScreenRect(*found);
    return TRUE;
}

BOOL WINAPI GetClientRect(HWND window, LPRECT rect)
{
    const Window* found = Resolve(window);
    if (found == nullptr)
    {
        return FALSE;
    }
    const RECT client = found == &Desktop() ? found->rect : ClientScreenRect(*found);
    *rect = {0, 0, client.right - client.left, client.bottom - client.top};
    return TRUE;
}

BOOL WINAPI SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags)
{
    Window* found = Resolve(window);
    if (found == nullptr || found == &Desktop())
    {
        return FALSE;
    }
    WINDOWPOS position = {window, insertAfter, x, y, width, height, flags};
    if ((flags & SWP_NOMOVE) != 0)
    {
        position.x = found->rect.left;
        position.y = found->rect.top;
    }
    if ((flags & SWP_NOSIZE) != 0)
    {
        position.cx = found->rect.right - found->rect.left;
        position.cy = found->rect.bottom - found->rect.top;
    }
    position.flags = ReduceFlags(*found, position);
    if ((position.flags & SWP_NOSENDCHANGING) == 0)
    {
        Send(window, WM_WINDOWPOSCHANGING, 0, ToParam(&position));
    }
    found = Find(window);
    if (found == nullptr)
    {
        return FALSE;
    }
    Apply(*found, position);
    if ((position.flags & SWP_HIDEWINDOW) != 0)
    {
        if (window == InputState().active)
        {
            ActivateOther(window);
        }
        LeaveFocus(window);
    }
    else if ((position.flags & SWP_NOACTIVATE) == 0 && !IsChildStyle(found->style))
    {
        Activate(window, false);
    }
    const bool changed = (position.flags & Unchanged) != Unchanged ||
                         (position.flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW | SWP_FRAMECHANGED)) != 0;
    if (changed)
    {
        Send(window, WM_WINDOWPOSCHANGED, 0, ToParam(&position));
    }
    return TRUE;
}

BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL)
{
    return SetWindowPos(window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count)
{
    const POINT source = ClientOrigin(from);
    const POINT target = ClientOrigin(to);
    const POINT by = {source.x - target.x, source.y - target.y};
    for (UINT i = 0; i < count; ++i)
    {
        points[i].x += by.x;
        points[i].y += by.y;
    }
    return MAKELONG(by.x, by.y);
}

BOOL WINAPI ScreenToClient(HWND window, LPPOINT point)
{
    MapWindowPoints(nullptr, window, point, 1);
    return Resolve(window) != nullptr;
}

BOOL WINAPI ClientToScreen(HWND window, LPPOINT point)
{
    MapWindowPoints(window, nullptr, point, 1);
    return Resolve(window) != nullptr;
}

BOOL WINAPI ShowWindow(HWND window, int command)
{
    Window* found = Resolve(window);
    if (found == nullptr)
    {
        return FALSE;
    }
    const BOOL wasVisible = (found->style & WS_VISIBLE) != 0;
    const ShowEffect effect = EffectOf(command);
    const BOOL show = command != SW_HIDE;
    constexpr DWORD states = WS_MINIMIZE | WS_MAXIMIZE;
    const DWORD previousState = found->style & states;
    if (!effect.keepState)
    {
        found->style = (found->style & ~states) | effect.state;
    }
    const bool stateChanged = (found->style & states) != previousState;
    if (show == wasVisible && !stateChanged &&
        (!show || window == InputState().active || IsChildStyle(found->style)))
    {
        return wasVisible;
    }
    if (show != wasVisible)
    {
        Send(window, WM_SHOWWINDOW, static_cast<WPARAM>(show), 0);
    }
    UINT flags = effect.flags | SWP_NOMOVE | SWP_NOSIZE;
    found = Find(window);
    if (found != nullptr && IsChildStyle(found->style))
    {
        flags |= SWP_NOZORDER | SWP_NOACTIVATE;
    }
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, flags);
    if (stateChanged && Find(window) != nullptr)
    {
        if (effect.state == WS_MINIMIZE && window == InputState().active)
        {
            ActivateOther(window);
        }
        RECT client = {};
        GetClientRect(window, &client);
        Send(window, WM_SIZE,
             effect.state == WS_MINIMIZE   ? SIZE_MINIMIZED
             : effect.state == WS_MAXIMIZE ? SIZE_MAXIMIZED
                                           : SIZE_RESTORED,
             MAKELPARAM(client.right, client.bottom));
    }
    return wasVisible;
}

BOOL WINAPI IsWindowVisible(HWND window)
{
    const Window* found = Resolve(window);
    while (found != nullptr && (found->style & WS_VISIBLE) != 0)
    {
        if (found->parent == nullptr)
        {
            return TRUE;
        }
        found = Find(found->parent);
    }
    return FALSE;
}

BOOL WINAPI EnableWindow(HWND window, BOOL enable)
{
    Window* found = Resolve(window);
    if (found == nullptr)
    {
        return FALSE;
    }
    const BOOL wasDisabled = (found->style & WS_DISABLED) != 0;
    if (enable && wasDisabled)
    {
        found->style &= ~WS_DISABLED;
        Send(window, WM_ENABLE, TRUE);
    }
    else if (!enable && !wasDisabled)
    {
        Send(window, WM_CANCELMODE);
        found = Find(window);
        if (found == nullptr)
        {
            return wasDisabled;
        }
        found->style |= WS_DISABLED;
        if (window == InputState().focus)
        {
            SetFocus(nullptr);
        }
        if (window == InputState().capture)
        {
            ReleaseCapture();
        }
        Send(window, WM_ENABLE, FALSE);
    }
    return wasDisabled;
}

BOOL WINAPI IsWindowEnabled(HWND window)
{
    const Window* found = Resolve(window);
    return found != nullptr && (found->style & WS_DISABLED) == 0;
}

BOOL WINAPI IsIconic(HWND window)
{
    const Window* found = Resolve(window);
    return found != nullptr && (found->style & WS_MINIMIZE) != 0;
}

BOOL WINAPI IsZoomed(HWND window)
{
    const Window* found = Resolve(window);
    return found != nullptr && (found->style & WS_MAXIMIZE) != 0;
}

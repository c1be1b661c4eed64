// The mouse: its place, which only the program changes, and the windows under it.
#include "window.h"

using namespace headless;

namespace
{
POINT cursor = {};
}

BOOL WINAPI GetCursorPos(LPPOINT point)
{
    *point = cursor;
    return TRUE;
}

BOOL WINAPI SetCursorPos(int x, int y)
{
    cursor = {x, y};
    return TRUE;
}

BOOL WINAPI DragDetect(HWND, POINT)
{
    return FALSE;
}

UINT WINAPI GetDoubleClickTime()
{
    return 500;
}

HWND WINAPI ChildWindowFromPointEx(HWND parent, POINT point, UINT flags)
{
    const Window* found = Resolve(parent);
    RECT client = {};
    if (found == nullptr || !GetClientRect(parent, &client) || !PtInRect(&client, point))
    {
        return nullptr;
    }
    for (HWND child : found->children)
    {
        const Window& candidate = *Find(child);
        const bool skipped =
            ((flags & CWP_SKIPINVISIBLE) != 0 && (candidate.style & WS_VISIBLE) == 0) ||
            ((flags & CWP_SKIPDISABLED) != 0 && (candidate.style & WS_DISABLED) != 0) ||
            ((flags & CWP_SKIPTRANSPARENT) != 0 && (candidate.exStyle & WS_EX_TRANSPARENT) != 0);
        if (!skipped && PtInRect(&candidate.rect, point))
        {
            return child;
        }
    }
    return parent;
}

HWND WINAPI ChildWindowFromPoint(HWND parent, POINT point)
{
    return ChildWindowFromPointEx(parent, point, CWP_ALL);
}

HWND WINAPI RealChildWindowFromPoint(HWND parent, POINT point)
{
    return ChildWindowFromPointEx(parent, point, CWP_SKIPTRANSPARENT | CWP_SKIPINVISIBLE);
}

HWND WINAPI WindowFromPoint(POINT point)
{
    HWND window = Desktop().handle;
    for (;;)
    {
        POINT inside = point;
        ScreenToClient(window, &inside);
        const HWND child = ChildWindowFromPointEx(window, inside, CWP_SKIPINVISIBLE | CWP_SKIPDISABLED);
        if (child == nullptr || child == window)
        {
            return window;
        }
        window = child;
    }
}

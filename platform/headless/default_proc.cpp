// What a window does with the messages that its own procedure leaves to the system.
#include "unicode.h"
#include "window.h"

using namespace headless;

namespace
{
LRESULT StoreText(HWND window, LPCWSTR text)
{
    // A number names a picture to show, and is no text.
    Find(window)->text = IS_INTRESOURCE(text) ? u"" : text;
    return TRUE;
}

void TellPlace(HWND window, const WINDOWPOS& position)
{
    const Window* found = Find(window);
    const RECT rect = found->rect;
    if ((position.flags & SWP_NOMOVE) == 0)
    {
        const RECT client = ClientScreenRect(*found);
        POINT origin = {client.left, client.top};
        ScreenToClient(found->parent, &origin);
        Send(window, WM_MOVE, 0, MAKELPARAM(origin.x, origin.y));
    }
    RECT client = {};
    if ((position.flags & SWP_NOSIZE) == 0 && rect.right >= rect.left && GetClientRect(window, &client))
    {
        Send(window, WM_SIZE,
             IsIconic(window)   ? SIZE_MINIMIZED
             : IsZoomed(window) ? SIZE_MAXIMIZED
                                : SIZE_RESTORED,
             MAKELPARAM(client.right, client.bottom));
    }
}

void DoSystemCommand(HWND window, WPARAM command)
{
    switch (command & 0xFFF0)
    {
    case SC_CLOSE:
        Send(window, WM_CLOSE);
        break;
    case SC_MINIMIZE:
        ShowWindow(window, SW_MINIMIZE);
        break;
    case SC_MAXIMIZE:
        ShowWindow(window, SW_MAXIMIZE);
        break;
    case SC_RESTORE:
        ShowWindow(window, SW_RESTORE);
        break;
    default:
        break;
    }
}

LRESULT ExchangeIcon(HWND window, WPARAM which, const HICON* replacement)
{
    HICON& icon = Find(window)->icons[which == ICON_BIG ? ICON_BIG : ICON_SMALL];
    const HICON previous = icon;
    if (replacement != nullptr)
    {
        icon = *replacement;
    }
    return ToParam(previous);
}

void DoKey(HWND window, UINT message, WPARAM key)
{
    if (message == WM_KEYDOWN && key == VK_F1)
    {
        HELPINFO help = {};
        help.cbSize = sizeof(help);
        help.iContextType = HELPINFO_WINDOW;
        help.iCtrlId = GetDlgCtrlID(window);
        help.hItemHandle = window;
        Send(window, WM_HELP, 0, ToParam(&help));
    }
    else if (message == WM_SYSKEYDOWN && key == VK_F4)
    {
        PostMessageW(GetAncestor(window, GA_ROOT), WM_SYSCOMMAND, SC_CLOSE, 0);
    }
}

// The window may be gone when this returns.
LRESULT Default(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    Window& target = *Find(window);
    switch (message)
    {
    case WM_NCCREATE:
        StoreText(window, reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpszName);
        return TRUE;
    case WM_SETTEXT:
        return StoreText(window, reinterpret_cast<LPCWSTR>(lParam));
    case WM_GETTEXT:
        return static_cast<LRESULT>(CopyText(reinterpret_cast<LPWSTR>(lParam), wParam, target.text));
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(target.text.size());
    case WM_CLOSE:
        DestroyWindow(window);
        return 0;
    case WM_WINDOWPOSCHANGED:
        TellPlace(window, *reinterpret_cast<const WINDOWPOS*>(lParam));
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE && !IsIconic(window))
        {
            SetFocus(window);
        }
        return 0;
    case WM_SETREDRAW:
        target.style = wParam != 0 ? target.style | WS_VISIBLE : target.style & ~WS_VISIBLE;
        return 0;
    case WM_SYSCOMMAND:
        DoSystemCommand(window, wParam);
        return 0;
    case WM_GETICON:
        return ExchangeIcon(window, wParam, nullptr);
    case WM_SETICON:
    {
        const auto icon = reinterpret_cast<HICON>(lParam);
        return ExchangeIcon(window, wParam, &icon);
    }
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        DoKey(window, message, wParam);
        return 0;
    case WM_HELP:
    case WM_CONTEXTMENU:
    case WM_MOUSEWHEEL:
        return Send(GetParent(window), message, wParam, lParam);
    case WM_CANCELMODE:
        if (GetCapture() == window)
        {
            ReleaseCapture();
        }
        return 0;
    case WM_NOTIFYFORMAT:
        return NFR_UNICODE;
    case WM_MOUSEACTIVATE:
        return MA_ACTIVATE;
    case WM_NCHITTEST:
        return HTCLIENT;
    case WM_NCACTIVATE:
    case WM_ERASEBKGND:
    case WM_QUERYOPEN:
    case WM_QUERYENDSESSION:
        return TRUE;
    default:
        return 0;
    }
}
}  // namespace

LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return Find(window) == nullptr ? 0 : Default(window, message, wParam, lParam);
}

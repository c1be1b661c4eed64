// How windows come and go.
#include "window.h"

#include "fault.h"
#include "headless.h"
#include "tchar.h"
#include "unicode.h"

namespace headless
{
namespace
{
std::string ClassFault(LPCWSTR className)
{
    std::u16string name = className;
    for (char16_t& character : name)
    {
        character = static_cast<char16_t>(_totlower(character));
    }
    return "CreateWindowExW " + ToNarrow(name);
}

bool MustFail(const WindowClass& windowClass)
{
    DWORD error = 0;
    if (TakeFault("CreateWindowExW", &error) ||
        TakeFault(ClassFault(windowClass.name.c_str()).c_str(), &error))
    {
        SetLastError(error);
        return true;
    }
    return false;
}

// The styles that the system adds.
void CompleteStyles(DWORD* style, DWORD* exStyle)
{
    if ((*style & (WS_CHILD | WS_POPUP)) == 0)
    {
        *style |= WS_CAPTION;
    }
    if (!IsChildStyle(*style))
    {
        *style |= WS_CLIPSIBLINGS;
    }
    if ((*exStyle & WS_EX_DLGMODALFRAME) != 0 || (*style & (WS_DLGFRAME | WS_THICKFRAME)) != 0)
    {
        *exStyle |= WS_EX_WINDOWEDGE;
    }
}

void ReplaceDefaults(CREATESTRUCTW* create)
{
    const bool overlapped = (create->style & static_cast<LONG>(WS_CHILD | WS_POPUP)) == 0;
    if (create->x == CW_USEDEFAULT)
    {
        create->x = 0;
        create->y = 0;
    }
    if (create->cx == CW_USEDEFAULT)
    {
        create->cx = overlapped ? GetSystemMetrics(SM_CXSCREEN) * 3 / 4 : 0;
        create->cy = overlapped ? GetSystemMetrics(SM_CYSCREEN) * 3 / 4 : 0;
    }
}

// Where the new window goes: false, with the last error set, if it can go nowhere.
bool FindPlace(DWORD style, HWND given, HWND* parent, HWND* owner)
{
    *parent = Desktop().handle;
    *owner = nullptr;
    if (given == HWND_MESSAGE)
    {
        return true;
    }
    if (given != nullptr && Resolve(given) == nullptr)
    {
        return false;
    }
    if (IsChildStyle(style))
    {
        if (given == nullptr)
        {
            SetLastError(ERROR_TLW_WITH_WSCHILD);
            return false;
        }
        *parent = given;
    }
    else if (given != nullptr)
    {
        *owner = GetAncestor(given, GA_ROOT);
    }
    return true;
}

void NotifyParent(HWND window, UINT event)
{
    const Window* found = Find(window);
    if (found != nullptr && IsChildStyle(found->style) && (found->exStyle & WS_EX_NOPARENTNOTIFY) == 0)
    {
        Send(found->parent, WM_PARENTNOTIFY, MAKEWPARAM(event, found->id), ToParam(window));
    }
}

// The messages of a window's first moments. False if a handler refused it or destroyed it.
bool Introduce(HWND window, CREATESTRUCTW* create)
{
    CBT_CREATEWNDW hookData = {create, HWND_TOP};
    if (CallHooks(WH_CBT, HCBT_CREATEWND, reinterpret_cast<WPARAM>(window), ToParam(&hookData)) != 0)
    {
        Remove(window);
        return false;
    }
    if (Window* found = Find(window))
    {
        found->rect = {create->x, create->y, create->x + create->cx, create->y + create->cy};
    }
    if (Send(window, WM_NCCREATE, 0, ToParam(create)) == 0)
    {
        Send(window, WM_NCDESTROY);
        Remove(window);
        return false;
    }
    if (Send(window, WM_CREATE, 0, ToParam(create)) == -1)
    {
        DestroyWindow(window);
        return false;
    }
    if (const Window* found = Find(window))
    {
        RECT client = {};
        GetClientRect(window, &client);
        const RECT place = found->rect;
        Send(window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right, client.bottom));
        Send(window, WM_MOVE, 0, MAKELPARAM(place.left, place.top));
    }
    return Find(window) != nullptr;
}

void SendDestroy(HWND window)
{
    if (window == InputState().active)
    {
        ActivateOther(window);
    }
    LeaveFocus(window);
    Send(window, WM_DESTROY);
    if (Window* found = Find(window))
    {
        found->destroying = true;
        const std::vector<HWND> children = found->children;
        for (HWND child : children)
        {
            SendDestroy(child);
        }
    }
}

void SendNcDestroy(HWND window)
{
    // A handler may have made another child meanwhile.
    for (Window* found = Find(window); found != nullptr && !found->children.empty(); found = Find(window))
    {
        const HWND child = found->children.front();
        Find(child)->destroying = true;
        SendNcDestroy(child);
    }
    Send(window, WM_NCDESTROY);
    Remove(window);
}
}  // namespace

void FailWindowClass(LPCWSTR className, unsigned nth, DWORD error)
{
    FailCall(ClassFault(className).c_str(), nth, error);
}
}  // namespace headless

using namespace headless;

HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, int x, int y,
                            int width, int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID param)
{
    const auto windowClass = FindClass(className);
    HWND place = nullptr;
    HWND owner = nullptr;
    if (windowClass == nullptr || MustFail(*windowClass) || !FindPlace(style, parent, &place, &owner))
    {
        return nullptr;
    }
    CompleteStyles(&style, &exStyle);
    CREATESTRUCTW create = {
        param,      instance,  menu,   parent, height, width, y, x, static_cast<LONG>(style),
        windowName, className, exStyle};
    ReplaceDefaults(&create);

    Window& added = Add(windowClass);
    const HWND window = added.handle;
    added.instance = instance;
    added.style = style & ~WS_VISIBLE;
    added.exStyle = exStyle;
    added.id = reinterpret_cast<LONG_PTR>(menu);
    added.owner = owner;
    Link(added, place, IsChildStyle(style) ? HWND_BOTTOM : HWND_TOP);
    if (!Introduce(window, &create))
    {
        return nullptr;
    }
    NotifyParent(window, WM_CREATE);
    if ((style & WS_VISIBLE) != 0)
    {
        ShowWindow(window, (style & WS_MINIMIZE) != 0   ? SW_SHOWMINIMIZED
                           : (style & WS_MAXIMIZE) != 0 ? SW_SHOWMAXIMIZED
                                                        : SW_SHOW);
    }
    return Find(window) == nullptr ? nullptr : window;
}

BOOL WINAPI DestroyWindow(HWND window)
{
    Window* found = Resolve(window);
    if (found == nullptr || found == &Desktop())
    {
        return FALSE;
    }
    if (found->destroying)
    {
        return TRUE;
    }
    if (CallHooks(WH_CBT, HCBT_DESTROYWND, reinterpret_cast<WPARAM>(window), 0) != 0)
    {
        return FALSE;
    }
    NotifyParent(window, WM_DESTROY);
    found = Find(window);
    if (found == nullptr)
    {
        return TRUE;
    }
    found->destroying = true;
    if ((found->style & WS_VISIBLE) != 0)
    {
        SetWindowPos(window, nullptr, 0, 0, 0, 0,
                     SWP_HIDEWINDOW | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    for (HWND owned : OwnedWindows(window))
    {
        DestroyWindow(owned);
    }
    SendDestroy(window);
    SendNcDestroy(window);
    return TRUE;
}

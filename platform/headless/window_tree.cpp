// The tree of windows: who lies in whom, above whom, and who is owned by whom.
#include <algorithm>
#include <unordered_map>

#include "tchar.h"
#include "window.h"

namespace headless
{
namespace
{
using Windows = std::unordered_map<HWND, std::unique_ptr<Window>>;

Windows& AllWindows()
{
    static auto& windows = *new Windows;
    return windows;
}

HWND NewHandle()
{
    // Handles are never used again, so that a dead one stays dead.
    static ULONG_PTR last = 0x10000;
    last += 2;
    return reinterpret_cast<HWND>(last);
}

Window MakeDesktop()
{
    Window desktop;
    auto windowClass = std::make_shared<WindowClass>();
    windowClass->name = u"#32769";
    windowClass->atom = 0x8001;
    desktop.handle = NewHandle();
    desktop.windowClass = windowClass;
    desktop.procedure = DefWindowProcW;
    desktop.style = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    desktop.rect = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    return desktop;
}

bool Matches(const Window& window, const WindowClass* windowClass, LPCWSTR text)
{
    return (windowClass == nullptr || window.windowClass.get() == windowClass) &&
           (text == nullptr || _tcsicmp(window.text.c_str(), text) == 0);
}

// False once the callback asked to stop.
bool EnumerateTree(HWND parent, WNDENUMPROC callback, LPARAM lParam)
{
    const Window* found = Find(parent);
    const std::vector<HWND> children = found == nullptr ? std::vector<HWND>() : found->children;
    return std::all_of(children.begin(), children.end(),
                       [&](HWND child) {
                           return Find(child) == nullptr ||
                                  (callback(child, lParam) && EnumerateTree(child, callback, lParam));
                       });
}
}  // namespace

Window& Desktop()
{
    static Window& desktop = *new Window(MakeDesktop());
    return desktop;
}

Window* Find(HWND window)
{
    if (window == Desktop().handle)
    {
        return &Desktop();
    }
    const auto found = AllWindows().find(window);
    return found == AllWindows().end() ? nullptr : found->second.get();
}

Window* Resolve(HWND window)
{
    Window* found = Find(window);
    if (found == nullptr)
    {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    }
    return found;
}

Window& Add(const std::shared_ptr<const WindowClass>& windowClass)
{
    auto added = std::make_unique<Window>();
    added->handle = NewHandle();
    added->windowClass = windowClass;
    added->procedure = windowClass->info.lpfnWndProc;
    added->extra.resize(static_cast<std::size_t>(windowClass->info.cbWndExtra));
    return *(AllWindows()[added->handle] = std::move(added));
}

void Remove(HWND window)
{
    Window* found = Find(window);
    if (found == nullptr || found == &Desktop())
    {
        return;
    }
    DropMessages(window);
    DropTimers(window);
    Input& input = InputState();
    for (HWND* place : {&input.focus, &input.active, &input.capture})
    {
        *place = *place == window ? nullptr : *place;
    }
    Unlink(*found);
    AllWindows().erase(window);
}

bool IsChildStyle(DWORD style)
{
    return (style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
}

bool IsTopLevel(const Window& window)
{
    return window.parent == Desktop().handle;
}

void Link(Window& window, HWND parent, HWND insertAfter)
{
    window.parent = parent;
    Window* container = Find(parent);
    if (container == nullptr)
    {
        return;
    }
    std::vector<HWND>& siblings = container->children;
    auto place = siblings.begin();
    if (insertAfter == HWND_BOTTOM)
    {
        place = siblings.end();
    }
    else
    {
        const auto above = std::find(siblings.begin(), siblings.end(), insertAfter);
        place = above == siblings.end() ? siblings.begin() : above + 1;
    }
    siblings.insert(place, window.handle);
}

void Unlink(Window& window)
{
    if (Window* container = Find(window.parent))
    {
        std::erase(container->children, window.handle);
    }
}

void Raise(HWND window)
{
    Window* found = Find(window);
    if (found == nullptr)
    {
        return;
    }
    Unlink(*found);
    Link(*found, found->parent, HWND_TOP);
    std::vector<HWND> owned = OwnedWindows(window);
    std::for_each(owned.rbegin(), owned.rend(), Raise);
}

std::vector<HWND> TopLevelWindows()
{
    return Desktop().children;
}

std::vector<HWND> OwnedWindows(HWND owner)
{
    std::vector<HWND> owned = TopLevelWindows();
    std::erase_if(owned, [&](HWND window) { return Find(window)->owner != owner; });
    return owned;
}

bool Contains(HWND outer, HWND inner)
{
    return outer != nullptr && (outer == inner || IsChild(outer, inner));
}
}  // namespace headless

using namespace headless;

HWND WINAPI GetDesktopWindow()
{
    return Desktop().handle;
}

BOOL WINAPI IsWindow(HWND window)
{
    return Find(window) != nullptr;
}

HWND WINAPI GetParent(HWND window)
{
    const Window* found = Resolve(window);
    if (found == nullptr)
    {
        return nullptr;
    }
    if ((found->style & WS_POPUP) != 0)
    {
        return found->owner;
    }
    return (found->style & WS_CHILD) != 0 && found->parent != Desktop().handle ? found->parent : nullptr;
}

HWND WINAPI SetParent(HWND child, HWND newParent)
{
    Window* found = Resolve(child);
    const HWND parent = newParent == nullptr ? Desktop().handle : newParent;
    if (found == nullptr || Resolve(parent) == nullptr || found == &Desktop() || Contains(child, parent))
    {
        return nullptr;
    }
    const HWND previous = found->parent;
    Unlink(*found);
    Link(*found, parent, HWND_TOP);
    return previous;
}

HWND WINAPI GetWindow(HWND window, UINT relation)
{
    const Window* found = Resolve(window);
    if (found == nullptr)
    {
        return nullptr;
    }
    if (relation == GW_OWNER)
    {
        return found->owner;
    }
    if (relation == GW_CHILD)
    {
        return found->children.empty() ? nullptr : found->children.front();
    }
    if (relation == GW_ENABLEDPOPUP)
    {
        for (HWND owned : OwnedWindows(window))
        {
            if (IsWindowVisible(owned) && IsWindowEnabled(owned))
            {
                return owned;
            }
        }
        return nullptr;
    }
    const Window* container = Find(found->parent);
    if (container == nullptr)
    {
        return nullptr;
    }
    const std::vector<HWND>& siblings = container->children;
    const auto place = std::find(siblings.begin(), siblings.end(), window);
    switch (relation)
    {
    case GW_HWNDFIRST:
        return siblings.front();
    case GW_HWNDLAST:
        return siblings.back();
    case GW_HWNDNEXT:
        return place + 1 == siblings.end() ? nullptr : *(place + 1);
    case GW_HWNDPREV:
        return place == siblings.begin() ? nullptr : *(place - 1);
    default:
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
}

HWND WINAPI GetAncestor(HWND window, UINT flags)
{
    const Window* found = Resolve(window);
    if (found == nullptr || found == &Desktop())
    {
        return nullptr;
    }
    if (flags == GA_PARENT)
    {
        return found->parent;
    }
    while (!IsTopLevel(*found))
    {
        found = Find(found->parent);
        if (found == nullptr)
        {
            return nullptr;
        }
    }
    if (flags == GA_ROOTOWNER && Find(found->owner) != nullptr)
    {
        return GetAncestor(found->owner, GA_ROOTOWNER);
    }
    return found->handle;
}

BOOL WINAPI IsChild(HWND parent, HWND window)
{
    const Window* found = Find(window);
    // A top-level window is nobody's child, not even the desktop's.
    while (found != nullptr && IsChildStyle(found->style))
    {
        if (found->parent == parent)
        {
            return TRUE;
        }
        found = Find(found->parent);
    }
    return FALSE;
}

BOOL WINAPI EnumWindows(WNDENUMPROC callback, LPARAM lParam)
{
    const std::vector<HWND> windows = TopLevelWindows();
    return std::all_of(windows.begin(), windows.end(),
                       [&](HWND window) { return Find(window) == nullptr || callback(window, lParam); });
}

BOOL WINAPI EnumThreadWindows(DWORD, WNDENUMPROC callback, LPARAM lParam)
{
    return EnumWindows(callback, lParam);
}

HWND WINAPI FindWindowW(LPCWSTR className, LPCWSTR windowName)
{
    return FindWindowExW(nullptr, nullptr, className, windowName);
}

HWND WINAPI FindWindowExW(HWND parent, HWND childAfter, LPCWSTR className, LPCWSTR windowName)
{
    const Window* container = parent == nullptr ? &Desktop() : Resolve(parent);
    const auto windowClass = className == nullptr ? nullptr : FindClass(className);
    if (container == nullptr || (className != nullptr && windowClass == nullptr))
    {
        return nullptr;
    }
    const std::vector<HWND>& children = container->children;
    auto place = children.begin();
    if (childAfter != nullptr)
    {
        place = std::find(children.begin(), children.end(), childAfter);
        if (place == children.end())
        {
            SetLastError(ERROR_INVALID_WINDOW_HANDLE);
            return nullptr;
        }
        ++place;
    }
    place = std::find_if(place, children.end(),
                         [&](HWND child) { return Matches(*Find(child), windowClass.get(), windowName); });
    return place == children.end() ? nullptr : *place;
}

// Which window is active, which has the keyboard, which the mouse.
#include "window.h"

namespace headless
{
namespace
{
bool CanBeActive(HWND window)
{
    const Window* found = Find(window);
    return found != nullptr && !found->destroying &&
           (found->style & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE && (found->style & WS_MINIMIZE) == 0 &&
           (found->exStyle & (WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW)) == 0;
}

void TellActive(HWND window, WPARAM how, HWND other)
{
    Send(window, WM_NCACTIVATE, how != WA_INACTIVE, 0);
    Send(window, WM_ACTIVATE, how, ToParam(other));
}

// No ancestor may be disabled or minimised.
bool CanHaveFocus(HWND window)
{
    for (const Window* found = Find(window); found != nullptr; found = Find(found->parent))
    {
        if ((found->style & (WS_DISABLED | WS_MINIMIZE)) != 0)
        {
            return false;
        }
        if (IsTopLevel(*found))
        {
            return true;
        }
    }
    return false;
}

void ChangeFocus(HWND window)
{
    Input& input = InputState();
    const HWND previous = input.focus;
    if (previous == window)
    {
        return;
    }
    input.focus = window;
    Send(previous, WM_KILLFOCUS, reinterpret_cast<WPARAM>(window));
    // The one that lost it may have given it to another.
    if (input.focus == window)
    {
        Send(window, WM_SETFOCUS, reinterpret_cast<WPARAM>(previous));
    }
}
}  // namespace

Input& InputState()
{
    static Input input;
    return input;
}

bool Activate(HWND window, bool byMouse)
{
    Input& input = InputState();
    const HWND previous = input.active;
    if (previous == window)
    {
        return true;
    }
    if (window != nullptr)
    {
        CBTACTIVATESTRUCT hookData = {byMouse, previous};
        if (CallHooks(WH_CBT, HCBT_ACTIVATE, reinterpret_cast<WPARAM>(window), ToParam(&hookData)) != 0 ||
            Find(window) == nullptr)
        {
            return false;
        }
    }
    input.active = window;
    if (Find(previous) != nullptr)
    {
        TellActive(previous, WA_INACTIVE, window);
    }
    if (input.active != window)
    {
        return false;
    }
    if (window == nullptr)
    {
        ChangeFocus(nullptr);
        return true;
    }
    Raise(window);
    if (previous == nullptr)
    {
        Send(window, WM_ACTIVATEAPP, TRUE);
    }
    TellActive(window, byMouse ? WA_CLICKACTIVE : WA_ACTIVE, previous);
    if (input.active == window && !Contains(window, input.focus))
    {
        ChangeFocus(CanHaveFocus(window) ? window : nullptr);
    }
    return input.active == window;
}

void ActivateOther(HWND leaving)
{
    const Window* found = Find(leaving);
    HWND next = found == nullptr ? nullptr : found->owner;
    if (!CanBeActive(next))
    {
        next = nullptr;
        for (HWND candidate : TopLevelWindows())
        {
            if (candidate != leaving && CanBeActive(candidate))
            {
                next = candidate;
                break;
            }
        }
    }
    Activate(next, false);
}

void LeaveFocus(HWND leaving)
{
    const HWND focus = InputState().focus;
    if (!Contains(leaving, focus))
    {
        return;
    }
    const Window* found = Find(leaving);
    SetFocus(IsTopLevel(*found) || found->parent == focus ? nullptr : found->parent);
}
}  // namespace headless

using namespace headless;

HWND WINAPI SetFocus(HWND window)
{
    Input& input = InputState();
    const HWND previous = input.focus;
    if (window == previous)
    {
        return previous;
    }
    if (window != nullptr && (Resolve(window) == nullptr || !CanHaveFocus(window)))
    {
        return nullptr;
    }
    if (CallHooks(WH_CBT, HCBT_SETFOCUS, reinterpret_cast<WPARAM>(window), ToParam(previous)) != 0)
    {
        return nullptr;
    }
    if (window != nullptr)
    {
        const HWND root = GetAncestor(window, GA_ROOT);
        if (root != input.active && (!Activate(root, false) || Find(window) == nullptr))
        {
            return nullptr;
        }
    }
    ChangeFocus(window);
    return previous;
}

HWND WINAPI GetFocus()
{
    return InputState().focus;
}

HWND WINAPI SetActiveWindow(HWND window)
{
    const HWND previous = InputState().active;
    if (window != nullptr)
    {
        const Window* found = Resolve(window);
        if (found == nullptr || found == &Desktop() || IsChildStyle(found->style))
        {
            return nullptr;
        }
    }
    return Activate(window, false) ? previous : nullptr;
}

HWND WINAPI GetActiveWindow()
{
    return InputState().active;
}

BOOL WINAPI SetForegroundWindow(HWND window)
{
    const Window* found = Resolve(window);
    return found != nullptr && !IsChildStyle(found->style) && Activate(window, false);
}

BOOL WINAPI BringWindowToTop(HWND window)
{
    const Window* found = Resolve(window);
    const UINT activation = found != nullptr && (found->style & WS_DISABLED) != 0 ? SWP_NOACTIVATE : 0;
    return SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | activation);
}

HWND WINAPI SetCapture(HWND window)
{
    Input& input = InputState();
    const HWND previous = input.capture;
    input.capture = Find(window) == nullptr ? nullptr : window;
    if (previous != nullptr)
    {
        Send(previous, WM_CAPTURECHANGED, 0, ToParam(window));
    }
    return previous;
}

HWND WINAPI GetCapture()
{
    return InputState().capture;
}

BOOL WINAPI ReleaseCapture()
{
    SetCapture(nullptr);
    return TRUE;
}

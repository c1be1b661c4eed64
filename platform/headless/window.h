// What a window is here, and how the parts of the window system reach one. A pointer to a window is good only
// until the next message or hook runs, because any handler may destroy any window: across that, keep handles.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "windows.h"

namespace headless
{
struct WindowClass
{
    std::u16string name;
    ATOM atom = 0;
    WNDCLASSEXW info = {};
    bool system = false;
};

// Null, with the last error set, for a name or atom without a class. The first call registers the system's
// own.
std::shared_ptr<const WindowClass> FindClass(LPCWSTR nameOrAtom);

// What the dialog manager keeps for a window that was made from a template.
struct Dialog
{
    HFONT font = nullptr;
    int defaultId = 0;  // 0: none
    HWND savedFocus = nullptr;
    HWND disabledOwner = nullptr;
    INT_PTR result = 0;
    bool ended = false;
};

struct Window
{
    HWND handle = nullptr;
    std::shared_ptr<const WindowClass> windowClass;
    WNDPROC procedure = nullptr;
    HINSTANCE instance = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    LONG_PTR id = 0;
    LONG_PTR userData = 0;
    std::vector<BYTE> extra;

    HWND parent = nullptr;       // the desktop's for a top-level window
    HWND owner = nullptr;        // of a top-level window
    std::vector<HWND> children;  // topmost first
    RECT rect = {};              // within the parent's client area

    std::u16string text;
    HICON icons[2] = {};  // by ICON_SMALL, ICON_BIG
    std::unique_ptr<Dialog> dialog;
    bool destroying = false;
};

// Null if there is no such window; Resolve sets the last error then.
Window* Find(HWND window);
Window* Resolve(HWND window);
Window& Desktop();
Window& Add(const std::shared_ptr<const WindowClass>& windowClass);
// Takes the window out of the tree and forgets it, without a message.
void Remove(HWND window);
bool IsChildStyle(DWORD style);
bool IsTopLevel(const Window& window);

// The procedure's answer, or 0 for a window that is not there.
LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

// --- The tree

void Link(Window& window, HWND parent, HWND insertAfter);
void Unlink(Window& window);
// To the top of its siblings, the windows that it owns above it.
void Raise(HWND window);
std::vector<HWND> TopLevelWindows();
std::vector<HWND> OwnedWindows(HWND owner);
// Whether `inner` is `outer` or lies within it.
bool Contains(HWND outer, HWND inner);

// --- Place

RECT ScreenRect(const Window& window);
RECT ClientScreenRect(const Window& window);

// --- Focus and activation

struct Input
{
    HWND focus = nullptr;
    HWND active = nullptr;
    HWND capture = nullptr;
};
Input& InputState();
// False if a hook refused or the window went on the way.
bool Activate(HWND window, bool byMouse);
// After a window became unfit to be active: gives the activation to its owner or another window.
void ActivateOther(HWND leaving);
// Moves the focus out of a window that is hidden, disabled or destroyed.
void LeaveFocus(HWND leaving);

// --- Messages

void DropMessages(HWND window);
void DropTimers(HWND window);

bool HasTimers();
// Milliseconds to the next timer, 0 if one is due.
DWORD TimeToNextTimer();
// The timer that is due and fits the filter; taking it starts its next period.
bool DueTimer(LPMSG message, HWND window, UINT first, UINT last, bool take);
bool FitsFilter(const MSG& message, HWND window, UINT first, UINT last);

// The answer of the first hook of a kind, 0 if there is none.
LRESULT CallHooks(int hookType, int code, WPARAM wParam, LPARAM lParam);

// --- Dialogs

// Null for a window that the dialog manager did not make.
Dialog* FindDialog(HWND window);
void SetDialogFocus(HWND control);
// Lets the default look follow the focus from one push button to another, and back to the default button.
void MoveDefaultLook(HWND dialog, HWND newFocus);

int FromDialogX(int units);
int FromDialogY(int units);

template <class Pointer>
LPARAM ToParam(Pointer pointer)
{
    return reinterpret_cast<LPARAM>(pointer);
}
inline HWND ToWindow(WPARAM wParam)
{
    return reinterpret_cast<HWND>(wParam);
}
}  // namespace headless

// Windows, messages, dialogs and the rest of the user interface. Nothing is painted: a window is its place in
// the tree, its rectangle, its text and its procedure. One thread owns all windows.
#pragma once

#include "winuser_control.h"
#include "winuser_message.h"
#include "winuser_style.h"

#ifdef RC_INVOKED

#define RT_CURSOR 1
#define RT_BITMAP 2
#define RT_ICON 3
#define RT_MENU 4
#define RT_DIALOG 5
#define RT_STRING 6
#define RT_ACCELERATOR 9
#define RT_RCDATA 10
#define RT_GROUP_CURSOR 12
#define RT_GROUP_ICON 14
#define RT_VERSION 16
#define RT_MANIFEST 24
#define CREATEPROCESS_MANIFEST_RESOURCE_ID 1

#else

#include "windef.h"
#include "wingdi.h"
#include "winuser_function.h"
#include "winuser_struct.h"

#define IS_INTRESOURCE(name) (reinterpret_cast<ULONG_PTR>(name) >> 16 == 0)
#define MAKEINTRESOURCEW(id) (reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(id))))
#define MAKEINTRESOURCE MAKEINTRESOURCEW
#define MAKEINTATOM(atom) MAKEINTRESOURCEW(atom)

#define RT_CURSOR MAKEINTRESOURCEW(1)
#define RT_BITMAP MAKEINTRESOURCEW(2)
#define RT_ICON MAKEINTRESOURCEW(3)
#define RT_MENU MAKEINTRESOURCEW(4)
#define RT_DIALOG MAKEINTRESOURCEW(5)
#define RT_STRING MAKEINTRESOURCEW(6)
#define RT_ACCELERATOR MAKEINTRESOURCEW(9)
#define RT_RCDATA MAKEINTRESOURCEW(10)
#define RT_GROUP_CURSOR MAKEINTRESOURCEW(12)
#define RT_GROUP_ICON MAKEINTRESOURCEW(14)
#define RT_VERSION MAKEINTRESOURCEW(16)
#define RT_MANIFEST MAKEINTRESOURCEW(24)
#define CREATEPROCESS_MANIFEST_RESOURCE_ID MAKEINTRESOURCEW(1)

#define IDC_ARROW MAKEINTRESOURCEW(32512)
#define IDC_IBEAM MAKEINTRESOURCEW(32513)
#define IDC_WAIT MAKEINTRESOURCEW(32514)
#define IDI_APPLICATION MAKEINTRESOURCEW(32512)
#define IDI_HAND MAKEINTRESOURCEW(32513)
#define IDI_QUESTION MAKEINTRESOURCEW(32514)
#define IDI_EXCLAMATION MAKEINTRESOURCEW(32515)
#define IDI_ASTERISK MAKEINTRESOURCEW(32516)
#define IDI_ERROR IDI_HAND
#define IDI_WARNING IDI_EXCLAMATION
#define IDI_INFORMATION IDI_ASTERISK

#define WC_DIALOG MAKEINTATOM(0x8002)

#define HWND_TOP (static_cast<HWND>(nullptr))
#define HWND_BOTTOM (reinterpret_cast<HWND>(LONG_PTR{1}))
#define HWND_TOPMOST (reinterpret_cast<HWND>(LONG_PTR{-1}))
#define HWND_NOTOPMOST (reinterpret_cast<HWND>(LONG_PTR{-2}))
#define HWND_BROADCAST (reinterpret_cast<HWND>(LONG_PTR{0xFFFF}))
#define HWND_MESSAGE (reinterpret_cast<HWND>(LONG_PTR{-3}))

#define MAKEWPARAM(low, high) (static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(low, high))))
#define MAKELPARAM(low, high) (static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(low, high))))
#define MAKELRESULT(low, high) (static_cast<LRESULT>(static_cast<DWORD>(MAKELONG(low, high))))
#define GET_WM_COMMAND_ID(wParam, lParam) LOWORD(wParam)
#define GET_KEYSTATE_WPARAM(wParam) (LOWORD(wParam))
#define GET_WHEEL_DELTA_WPARAM(wParam) (static_cast<short>(HIWORD(wParam)))

// --- Window classes ---

ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* windowClass);
int WINAPI GetClassNameW(HWND window, LPWSTR className, int size);

// --- Windows ---

HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, int x, int y,
                            int width, int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID param);
#define CreateWindowW(className, windowName, style, x, y, width, height, parent, menu, instance, param) \
    CreateWindowExW(0, className, windowName, style, x, y, width, height, parent, menu, instance, param)
BOOL WINAPI DestroyWindow(HWND window);
BOOL WINAPI IsWindow(HWND window);

LONG WINAPI GetWindowLongW(HWND window, int index);
LONG WINAPI SetWindowLongW(HWND window, int index, LONG value);
LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index);
LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value);

BOOL WINAPI SetWindowTextW(HWND window, LPCWSTR text);
int WINAPI GetWindowTextW(HWND window, LPWSTR text, int size);
int WINAPI GetWindowTextLengthW(HWND window);

// --- The tree of windows ---

HWND WINAPI GetDesktopWindow();
HWND WINAPI GetParent(HWND window);
HWND WINAPI SetParent(HWND child, HWND newParent);
HWND WINAPI GetWindow(HWND window, UINT relation);
HWND WINAPI GetAncestor(HWND window, UINT flags);
#define GetNextWindow(window, relation) GetWindow(window, relation)
BOOL WINAPI IsChild(HWND parent, HWND window);
BOOL WINAPI EnumWindows(WNDENUMPROC callback, LPARAM lParam);
BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC callback, LPARAM lParam);
HWND WINAPI FindWindowW(LPCWSTR className, LPCWSTR windowName);
HWND WINAPI FindWindowExW(HWND parent, HWND childAfter, LPCWSTR className, LPCWSTR windowName);

// --- Place, visibility, ability ---

BOOL WINAPI GetWindowRect(HWND window, LPRECT rect);
BOOL WINAPI GetClientRect(HWND window, LPRECT rect);
BOOL WINAPI SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags);
BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count);
BOOL WINAPI ScreenToClient(HWND window, LPPOINT point);
BOOL WINAPI ClientToScreen(HWND window, LPPOINT point);
BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD exStyle);

BOOL WINAPI ShowWindow(HWND window, int command);
BOOL WINAPI IsWindowVisible(HWND window);
BOOL WINAPI EnableWindow(HWND window, BOOL enable);
BOOL WINAPI IsWindowEnabled(HWND window);
BOOL WINAPI IsIconic(HWND window);
BOOL WINAPI IsZoomed(HWND window);

// --- Focus and activation ---

HWND WINAPI SetFocus(HWND window);
HWND WINAPI GetFocus();
HWND WINAPI SetActiveWindow(HWND window);
HWND WINAPI GetActiveWindow();
BOOL WINAPI SetForegroundWindow(HWND window);
BOOL WINAPI BringWindowToTop(HWND window);
HWND WINAPI SetCapture(HWND window);
HWND WINAPI GetCapture();
BOOL WINAPI ReleaseCapture();

// --- Messages ---

LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void WINAPI PostQuitMessage(int exitCode);
// Waits for a message that fits; with none queued and no timer set it would wait for ever, and instead ends
// the program with a word on the standard error.
BOOL WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last);
BOOL WINAPI PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove);
BOOL WINAPI TranslateMessage(const MSG* message);
LRESULT WINAPI DispatchMessageW(const MSG* message);
LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);

UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
BOOL WINAPI KillTimer(HWND window, UINT_PTR id);

HHOOK WINAPI SetWindowsHookExW(int hookType, HOOKPROC procedure, HINSTANCE module, DWORD thread);
BOOL WINAPI UnhookWindowsHookEx(HHOOK hook);
LRESULT WINAPI CallNextHookEx(HHOOK hook, int code, WPARAM wParam, LPARAM lParam);
BOOL WINAPI CallMsgFilterW(LPMSG message, int code);

// --- Keyboard and mouse ---

SHORT WINAPI GetKeyState(int key);
BOOL WINAPI GetKeyboardState(PBYTE state);
BOOL WINAPI SetKeyboardState(LPBYTE state);
BOOL WINAPI GetCursorPos(LPPOINT point);
UINT WINAPI GetDoubleClickTime();

// --- Clipboard ---

#define CF_UNICODETEXT 13
BOOL WINAPI OpenClipboard(HWND owner);
BOOL WINAPI CloseClipboard();
BOOL WINAPI EmptyClipboard();
// The block is the clipboard's from here on.
HANDLE WINAPI SetClipboardData(UINT format, HANDLE data);
HANDLE WINAPI GetClipboardData(UINT format);

// --- Dialogs ---

HWND WINAPI CreateDialogParamW(HINSTANCE instance, LPCWSTR templateName, HWND owner, DLGPROC procedure,
                               LPARAM initParam);
HWND WINAPI CreateDialogIndirectParamW(HINSTANCE instance, LPCDLGTEMPLATEW dialogTemplate, HWND owner,
                                       DLGPROC procedure, LPARAM initParam);
INT_PTR WINAPI DialogBoxIndirectParamW(HINSTANCE instance, LPCDLGTEMPLATEW dialogTemplate, HWND owner,
                                       DLGPROC procedure, LPARAM initParam);
#define CreateDialogW(instance, name, owner, procedure) \
    CreateDialogParamW(instance, name, owner, procedure, 0)
BOOL WINAPI EndDialog(HWND dialog, INT_PTR result);
LRESULT WINAPI DefDlgProcW(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI IsDialogMessageW(HWND dialog, LPMSG message);
BOOL WINAPI MapDialogRect(HWND dialog, LPRECT rect);
HWND WINAPI GetDlgItem(HWND dialog, int id);
int WINAPI GetDlgCtrlID(HWND window);
HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);
LRESULT WINAPI SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI SetDlgItemTextW(HWND dialog, int id, LPCWSTR text);
UINT WINAPI GetDlgItemTextW(HWND dialog, int id, LPWSTR text, int size);

// A dialog like any other: class #32770, the text in the static 0xFFFF, the buttons under their ids.
int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);
BOOL WINAPI MessageBeep(UINT type);

// --- Metrics, resources, rectangles ---

int WINAPI GetSystemMetrics(int index);
BOOL WINAPI SystemParametersInfoW(UINT action, UINT param, PVOID data, UINT winIni);
UINT WINAPI GetDpiForSystem();
#define MONITOR_DEFAULTTONULL 0
#define MONITOR_DEFAULTTOPRIMARY 1
#define MONITOR_DEFAULTTONEAREST 2

int WINAPI LoadStringW(HINSTANCE instance, UINT id, LPWSTR buffer, int size);
HICON WINAPI LoadIconW(HINSTANCE instance, LPCWSTR name);

BOOL WINAPI OffsetRect(LPRECT rect, int x, int y);
BOOL WINAPI InflateRect(LPRECT rect, int x, int y);
BOOL WINAPI PtInRect(const RECT* rect, POINT point);

LPWSTR WINAPI CharLowerW(LPWSTR text);

// --- Painting, which does nothing ---

HDC WINAPI GetDC(HWND window);
int WINAPI ReleaseDC(HWND window, HDC dc);

#endif

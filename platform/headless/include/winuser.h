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

ATOM WINAPI RegisterClassW(const WNDCLASSW* windowClass);
ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* windowClass);
BOOL WINAPI UnregisterClassW(LPCWSTR className, HINSTANCE instance);
BOOL WINAPI GetClassInfoW(HINSTANCE instance, LPCWSTR className, LPWNDCLASSW windowClass);
BOOL WINAPI GetClassInfoExW(HINSTANCE instance, LPCWSTR className, LPWNDCLASSEXW windowClass);
int WINAPI GetClassNameW(HWND window, LPWSTR className, int size);
UINT WINAPI RealGetWindowClassW(HWND window, LPWSTR className, UINT size);
ULONG_PTR WINAPI GetClassLongPtrW(HWND window, int index);
DWORD WINAPI GetClassLongW(HWND window, int index);

// --- Windows ---

HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, int x, int y,
                            int width, int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID param);
#define CreateWindowW(className, windowName, style, x, y, width, height, parent, menu, instance, param) \
    CreateWindowExW(0, className, windowName, style, x, y, width, height, parent, menu, instance, param)
BOOL WINAPI DestroyWindow(HWND window);
BOOL WINAPI IsWindow(HWND window);
BOOL WINAPI IsWindowUnicode(HWND window);

LONG WINAPI GetWindowLongW(HWND window, int index);
LONG WINAPI SetWindowLongW(HWND window, int index, LONG value);
LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index);
LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value);

BOOL WINAPI SetWindowTextW(HWND window, LPCWSTR text);
int WINAPI GetWindowTextW(HWND window, LPWSTR text, int size);
int WINAPI GetWindowTextLengthW(HWND window);
int WINAPI InternalGetWindowText(HWND window, LPWSTR text, int size);

BOOL WINAPI SetPropW(HWND window, LPCWSTR name, HANDLE data);
HANDLE WINAPI GetPropW(HWND window, LPCWSTR name);
HANDLE WINAPI RemovePropW(HWND window, LPCWSTR name);

DWORD WINAPI GetWindowThreadProcessId(HWND window, LPDWORD process);

// --- The tree of windows ---

HWND WINAPI GetDesktopWindow();
HWND WINAPI GetParent(HWND window);
HWND WINAPI SetParent(HWND child, HWND newParent);
HWND WINAPI GetWindow(HWND window, UINT relation);
HWND WINAPI GetAncestor(HWND window, UINT flags);
HWND WINAPI GetTopWindow(HWND window);
HWND WINAPI GetLastActivePopup(HWND window);
#define GetNextWindow(window, relation) GetWindow(window, relation)
BOOL WINAPI IsChild(HWND parent, HWND window);
BOOL WINAPI EnumWindows(WNDENUMPROC callback, LPARAM lParam);
BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC callback, LPARAM lParam);
BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC callback, LPARAM lParam);
HWND WINAPI FindWindowW(LPCWSTR className, LPCWSTR windowName);
HWND WINAPI FindWindowExW(HWND parent, HWND childAfter, LPCWSTR className, LPCWSTR windowName);
HWND WINAPI WindowFromPoint(POINT point);
HWND WINAPI ChildWindowFromPoint(HWND parent, POINT point);
HWND WINAPI ChildWindowFromPointEx(HWND parent, POINT point, UINT flags);
HWND WINAPI RealChildWindowFromPoint(HWND parent, POINT point);

// --- Place, visibility, ability ---

BOOL WINAPI GetWindowRect(HWND window, LPRECT rect);
BOOL WINAPI GetClientRect(HWND window, LPRECT rect);
BOOL WINAPI SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags);
BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
HDWP WINAPI BeginDeferWindowPos(int count);
HDWP WINAPI DeferWindowPos(HDWP info, HWND window, HWND insertAfter, int x, int y, int width, int height,
                           UINT flags);
BOOL WINAPI EndDeferWindowPos(HDWP info);
int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count);
BOOL WINAPI ScreenToClient(HWND window, LPPOINT point);
BOOL WINAPI ClientToScreen(HWND window, LPPOINT point);
BOOL WINAPI AdjustWindowRect(LPRECT rect, DWORD style, BOOL menu);
BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD exStyle);
BOOL WINAPI GetWindowPlacement(HWND window, WINDOWPLACEMENT* placement);

BOOL WINAPI ShowWindow(HWND window, int command);
BOOL WINAPI IsWindowVisible(HWND window);
BOOL WINAPI EnableWindow(HWND window, BOOL enable);
BOOL WINAPI IsWindowEnabled(HWND window);
BOOL WINAPI IsIconic(HWND window);
BOOL WINAPI IsZoomed(HWND window);
BOOL WINAPI CloseWindow(HWND window);
BOOL WINAPI OpenIcon(HWND window);

// --- Focus and activation ---

HWND WINAPI SetFocus(HWND window);
HWND WINAPI GetFocus();
HWND WINAPI SetActiveWindow(HWND window);
HWND WINAPI GetActiveWindow();
BOOL WINAPI SetForegroundWindow(HWND window);
HWND WINAPI GetForegroundWindow();
BOOL WINAPI BringWindowToTop(HWND window);
BOOL WINAPI GetGUIThreadInfo(DWORD thread, PGUITHREADINFO info);
BOOL WINAPI AttachThreadInput(DWORD attach, DWORD attachTo, BOOL attached);
HWND WINAPI SetCapture(HWND window);
HWND WINAPI GetCapture();
BOOL WINAPI ReleaseCapture();

// --- Messages ---

LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT WINAPI SendMessageTimeoutW(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT flags,
                                   UINT timeout, PDWORD_PTR result);
BOOL WINAPI SendNotifyMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI PostThreadMessageW(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam);
void WINAPI PostQuitMessage(int exitCode);
// Waits for a message that fits; with none queued and no timer set it would wait for ever, and instead ends
// the program with a word on the standard error.
BOOL WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last);
BOOL WINAPI PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove);
BOOL WINAPI WaitMessage();
BOOL WINAPI TranslateMessage(const MSG* message);
LRESULT WINAPI DispatchMessageW(const MSG* message);
DWORD WINAPI GetMessagePos();
LONG WINAPI GetMessageTime();
LPARAM WINAPI GetMessageExtraInfo();
DWORD WINAPI GetQueueStatus(UINT flags);
BOOL WINAPI InSendMessage();
BOOL WINAPI ReplyMessage(LRESULT result);
UINT WINAPI RegisterWindowMessageW(LPCWSTR name);
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
SHORT WINAPI GetAsyncKeyState(int key);
BOOL WINAPI GetKeyboardState(PBYTE state);
BOOL WINAPI SetKeyboardState(LPBYTE state);
UINT WINAPI MapVirtualKeyW(UINT code, UINT mapType);
SHORT WINAPI VkKeyScanW(WCHAR character);
BOOL WINAPI GetCursorPos(LPPOINT point);
BOOL WINAPI SetCursorPos(int x, int y);
BOOL WINAPI DragDetect(HWND window, POINT point);
UINT WINAPI GetDoubleClickTime();

// --- Clipboard ---

#define CF_UNICODETEXT 13
BOOL WINAPI OpenClipboard(HWND owner);
BOOL WINAPI CloseClipboard();
BOOL WINAPI EmptyClipboard();
// The block is the clipboard's from here on.
HANDLE WINAPI SetClipboardData(UINT format, HANDLE data);
HANDLE WINAPI GetClipboardData(UINT format);
BOOL WINAPI IsClipboardFormatAvailable(UINT format);

// --- Dialogs ---

HWND WINAPI CreateDialogParamW(HINSTANCE instance, LPCWSTR templateName, HWND owner, DLGPROC procedure,
                               LPARAM initParam);
HWND WINAPI CreateDialogIndirectParamW(HINSTANCE instance, LPCDLGTEMPLATEW dialogTemplate, HWND owner,
                                       DLGPROC procedure, LPARAM initParam);
INT_PTR WINAPI DialogBoxParamW(HINSTANCE instance, LPCWSTR templateName, HWND owner, DLGPROC procedure,
                               LPARAM initParam);
INT_PTR WINAPI DialogBoxIndirectParamW(HINSTANCE instance, LPCDLGTEMPLATEW dialogTemplate, HWND owner,
                                       DLGPROC procedure, LPARAM initParam);
#define CreateDialogW(instance, name, owner, procedure) \
    CreateDialogParamW(instance, name, owner, procedure, 0)
#define DialogBoxW(instance, name, owner, procedure) DialogBoxParamW(instance, name, owner, procedure, 0)
BOOL WINAPI EndDialog(HWND dialog, INT_PTR result);
LRESULT WINAPI DefDlgProcW(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI IsDialogMessageW(HWND dialog, LPMSG message);
BOOL WINAPI MapDialogRect(HWND dialog, LPRECT rect);
LONG WINAPI GetDialogBaseUnits();
HWND WINAPI GetDlgItem(HWND dialog, int id);
int WINAPI GetDlgCtrlID(HWND window);
HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);
LRESULT WINAPI SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI SetDlgItemTextW(HWND dialog, int id, LPCWSTR text);
UINT WINAPI GetDlgItemTextW(HWND dialog, int id, LPWSTR text, int size);
BOOL WINAPI SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned);
UINT WINAPI GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned);
BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check);
BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int check);
UINT WINAPI IsDlgButtonChecked(HWND dialog, int id);
BOOL WINAPI GetComboBoxInfo(HWND combo, PCOMBOBOXINFO info);

// A dialog like any other: class #32770, the text in the static 0xFFFF, the buttons under their ids.
int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);
int WINAPI MessageBoxExW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type, WORD language);
BOOL WINAPI MessageBeep(UINT type);

// --- Metrics, resources, rectangles ---

int WINAPI GetSystemMetrics(int index);
BOOL WINAPI SystemParametersInfoW(UINT action, UINT param, PVOID data, UINT winIni);
DWORD WINAPI GetSysColor(int index);
HBRUSH WINAPI GetSysColorBrush(int index);
UINT WINAPI GetDpiForWindow(HWND window);
UINT WINAPI GetDpiForSystem();
HMONITOR WINAPI MonitorFromWindow(HWND window, DWORD flags);
BOOL WINAPI GetMonitorInfoW(HMONITOR monitor, LPMONITORINFO info);
#define MONITOR_DEFAULTTONULL 0
#define MONITOR_DEFAULTTOPRIMARY 1
#define MONITOR_DEFAULTTONEAREST 2

int WINAPI LoadStringW(HINSTANCE instance, UINT id, LPWSTR buffer, int size);
HICON WINAPI LoadIconW(HINSTANCE instance, LPCWSTR name);
BOOL WINAPI DestroyIcon(HICON icon);
HCURSOR WINAPI LoadCursorW(HINSTANCE instance, LPCWSTR name);
HCURSOR WINAPI SetCursor(HCURSOR cursor);
HANDLE WINAPI LoadImageW(HINSTANCE instance, LPCWSTR name, UINT type, int width, int height, UINT flags);

BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom);
BOOL WINAPI SetRectEmpty(LPRECT rect);
BOOL WINAPI CopyRect(LPRECT target, const RECT* source);
BOOL WINAPI IsRectEmpty(const RECT* rect);
BOOL WINAPI EqualRect(const RECT* left, const RECT* right);
BOOL WINAPI OffsetRect(LPRECT rect, int x, int y);
BOOL WINAPI InflateRect(LPRECT rect, int x, int y);
BOOL WINAPI PtInRect(const RECT* rect, POINT point);
BOOL WINAPI IntersectRect(LPRECT target, const RECT* left, const RECT* right);
BOOL WINAPI UnionRect(LPRECT target, const RECT* left, const RECT* right);

LPWSTR WINAPI CharNextW(LPCWSTR text);
LPWSTR WINAPI CharUpperW(LPWSTR text);
LPWSTR WINAPI CharLowerW(LPWSTR text);

// --- Painting, which does nothing ---

BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase);
BOOL WINAPI ValidateRect(HWND window, const RECT* rect);
BOOL WINAPI UpdateWindow(HWND window);
BOOL WINAPI RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags);
HDC WINAPI BeginPaint(HWND window, LPPAINTSTRUCT paint);
BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT* paint);
HDC WINAPI GetDC(HWND window);
int WINAPI ReleaseDC(HWND window, HDC dc);
int WINAPI FillRect(HDC dc, const RECT* rect, HBRUSH brush);
int WINAPI DrawTextW(HDC dc, LPCWSTR text, int length, LPRECT rect, UINT format);
int WINAPI SetScrollInfo(HWND window, int bar, LPCSCROLLINFO info, BOOL redraw);
BOOL WINAPI GetScrollInfo(HWND window, int bar, LPSCROLLINFO info);
BOOL WINAPI ShowScrollBar(HWND window, int bar, BOOL show);
BOOL WINAPI CreateCaret(HWND window, HBITMAP bitmap, int width, int height);
BOOL WINAPI DestroyCaret();
BOOL WINAPI SetCaretPos(int x, int y);
BOOL WINAPI ShowCaret(HWND window);
BOOL WINAPI HideCaret(HWND window);

// --- Menus, of which there are none ---

HMENU WINAPI GetMenu(HWND window);
HMENU WINAPI GetSystemMenu(HWND window, BOOL revert);
BOOL WINAPI EnableMenuItem(HMENU menu, UINT item, UINT flags);
BOOL WINAPI DeleteMenu(HMENU menu, UINT item, UINT flags);
BOOL WINAPI WinHelpW(HWND window, LPCWSTR file, UINT command, ULONG_PTR data);

#endif

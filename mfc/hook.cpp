#include "afxwin.h"

namespace
{
CWnd* g_windowToAttach;
HHOOK g_hook;

bool IsDialogClass(HWND window)
{
    TCHAR name[8] = {};
    return GetClassNameW(window, name, 8) == 6 && lstrcmpW(name, _T("#32770")) == 0;
}

LRESULT CALLBACK CbtFilter(int code, WPARAM wParam, LPARAM lParam)
{
    const HWND window = reinterpret_cast<HWND>(wParam);
    const LRESULT result = CallNextHookEx(g_hook, code, wParam, lParam);
    // Other windows, an input method's for one, may be created on the way to the dialog.
    if (code == HCBT_CREATEWND && g_windowToAttach != nullptr && IsDialogClass(window))
    {
        CWnd* object = g_windowToAttach;
        AfxUnhookWindowCreate();
        object->Attach(window);
    }
    return result;
}
}  // namespace

void AfxHookWindowCreate(CWnd* pWnd)
{
    g_windowToAttach = pWnd;
    if (g_hook == nullptr)
    {
        g_hook = SetWindowsHookExW(WH_CBT, CbtFilter, nullptr, GetCurrentThreadId());
    }
}

void AfxUnhookWindowCreate()
{
    g_windowToAttach = nullptr;
    if (g_hook != nullptr)
    {
        UnhookWindowsHookEx(g_hook);
        g_hook = nullptr;
    }
}

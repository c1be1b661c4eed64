// CWnd: operations on the window, and the modal loop.
#include "afxwin.h"

#include <algorithm>

BOOL CWnd::EnableWindow(BOOL bEnable)
{
    if (!bEnable && m_hWnd != nullptr && GetFocus() == m_hWnd)
    {
        ::SendMessageW(GetParent(m_hWnd), WM_NEXTDLGCTL, 0, FALSE);
    }
    return ::EnableWindow(m_hWnd, bEnable);
}

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd)
{
    const auto before = static_cast<DWORD>(GetWindowLongW(m_hWnd, GWL_STYLE));
    const DWORD after = (before & ~dwRemove) | dwAdd;
    if (after == before)
    {
        return FALSE;
    }
    SetWindowLongW(m_hWnd, GWL_STYLE, static_cast<LONG>(after));
    return TRUE;
}

void CWnd::GetWindowText(CString& rString) const
{
    const int length = ::GetWindowTextLengthW(m_hWnd);
    ::GetWindowTextW(m_hWnd, rString.GetBuffer(length + 1), length + 1);
    rString.ReleaseBuffer();
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return m_hWnd == nullptr ? 0 : ::SendMessageW(m_hWnd, message, wParam, lParam);
}

void CWnd::CenterWindow()
{
    const HWND owner = GetWindow(m_hWnd, GW_OWNER);
    RECT window = {};
    MONITORINFO monitor = {sizeof(monitor), {}, {}, 0};
    if (!GetWindowRect(m_hWnd, &window) ||
        !GetMonitorInfoW(MonitorFromWindow(owner != nullptr ? owner : m_hWnd, MONITOR_DEFAULTTONEAREST),
                         &monitor))
    {
        return;
    }
    const RECT& screen = monitor.rcWork;
    RECT centre = screen;
    if (owner != nullptr && IsWindowVisible(owner) && !IsIconic(owner))
    {
        GetWindowRect(owner, &centre);
    }
    const LONG width = window.right - window.left;
    const LONG height = window.bottom - window.top;
    const LONG left = (centre.left + centre.right - width) / 2;
    const LONG top = (centre.top + centre.bottom - height) / 2;
    // If the window does not fit, its title bar stays visible.
    ::SetWindowPos(m_hWnd, nullptr, std::max(screen.left, std::min(left, screen.right - width)),
                   std::max(screen.top, std::min(top, screen.bottom - height)), 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Calls PreTranslateMessage of the message's window and its parents, up to the modal window.
static BOOL WalkPreTranslateTree(HWND stop, MSG* message)
{
    for (HWND window = message->hwnd; window != nullptr; window = GetParent(window))
    {
        CWnd* object = CWnd::FromHandlePermanent(window);
        if (object != nullptr && object->PreTranslateMessage(message))
        {
            return TRUE;
        }
        if (window == stop)
        {
            break;
        }
    }
    return FALSE;
}

int CWnd::RunModalLoop()
{
    m_bContinueModal = TRUE;
    if (!IsWindowVisible(m_hWnd))
    {
        ShowWindow(SW_SHOWNORMAL);
    }
    while (ContinueModal())
    {
        MSG message = {};
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE))
        {
            DeleteTempMap();
        }
        if (!GetMessageW(&message, nullptr, 0, 0))
        {
            // The outer message loops must receive it too.
            PostQuitMessage(static_cast<int>(message.wParam));
            m_nModalResult = -1;
            break;
        }
        if (!WalkPreTranslateTree(m_hWnd, &message))
        {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    m_bContinueModal = FALSE;
    return m_nModalResult;
}

void CWnd::EndModalLoop(int nResult)
{
    m_nModalResult = nResult;
    m_bContinueModal = FALSE;
    // The loop checks the flag only after a message.
    PostMessageW(m_hWnd, WM_NULL, 0, 0);
}

// CPropertySheet: layout of its tab control, page and buttons for any window size.
#include "afxdlgs.h"

#include <algorithm>

void CPropertySheet::RememberLayout()
{
    RECT window = {};
    GetWindowRect(m_hWnd, &window);
    m_size = {window.right - window.left, window.bottom - window.top};
    GetClientRect(m_hWnd, &m_client);
    const auto tabs = reinterpret_cast<HWND>(SendMessage(PSM_GETTABCONTROL));
    for (HWND child = GetWindow(m_hWnd, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    {
        // The other children are pages, which place themselves.
        if (child == tabs || (::SendMessageW(child, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0)
        {
            RECT place = {};
            GetWindowRect(child, &place);
            MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&place), 2);
            m_controls.emplace_back(child, place);
        }
    }
}

// The tab control grows with the window; the buttons stay at its lower right corner.
void CPropertySheet::LayOut()
{
    RECT client = {};
    GetClientRect(m_hWnd, &client);
    const int wider = client.right - m_client.right;
    const int higher = client.bottom - m_client.bottom;
    const auto tabs = reinterpret_cast<HWND>(SendMessage(PSM_GETTABCONTROL));
    for (const auto& [window, place] : m_controls)
    {
        const bool grows = window == tabs;
        ::SetWindowPos(window, nullptr, place.left + (grows ? 0 : wider), place.top + (grows ? 0 : higher),
                       place.right - place.left + (grows ? wider : 0),
                       place.bottom - place.top + (grows ? higher : 0), SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (CPropertyPage* page = GetActivePage())
    {
        // The page ignores these coordinates and fills the tab control's display area.
        ::SetWindowPos(page->m_hWnd, nullptr, 0, 0, 0, 0, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    m_hWndShown = nullptr;
}

// Restores the window's original size as far as the monitor's work area allows. If the area is too low, pages
// scroll, so the window is wider by a scroll bar.
void CPropertySheet::Fit()
{
    MONITORINFO monitor = {sizeof(monitor), {}, {}, 0};
    RECT window = {};
    if (m_controls.empty() || IsZoomed(m_hWnd) || IsIconic(m_hWnd) || !GetWindowRect(m_hWnd, &window) ||
        !GetMonitorInfoW(MonitorFromWindow(m_hWnd, MONITOR_DEFAULTTONEAREST), &monitor))
    {
        return;
    }
    const RECT& screen = monitor.rcWork;
    const bool isLow = m_size.cy > screen.bottom - screen.top;
    const LONG width =
        std::min(m_size.cx + (isLow ? GetSystemMetrics(SM_CXVSCROLL) : 0), screen.right - screen.left);
    const LONG height = std::min(m_size.cy, screen.bottom - screen.top);
    // A window of the right size stays where the user put it, unless the work area is too low.
    if (isLow || width != window.right - window.left || height != window.bottom - window.top)
    {
        ::SetWindowPos(m_hWnd, nullptr, std::max(screen.left, std::min(window.left, screen.right - width)),
                       std::max(screen.top, std::min(window.top, screen.bottom - height)), width, height,
                       SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

// Does nothing while the mouse is captured, by a pressed button or an open list, because scrolling would move
// what it points at.
void CPropertySheet::ShowFocus()
{
    const HWND focus = ::GetFocus();
    if (focus != nullptr && focus != m_hWndShown && GetCapture() == nullptr)
    {
        m_hWndShown = focus;
        CPropertyPage* page = GetActivePage();
        if (page != nullptr && IsChild(page->m_hWnd, focus))
        {
            page->Show(focus);
        }
    }
}

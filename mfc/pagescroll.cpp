// CPropertyPage: scrolling of a page that is taller than its window.
#include "afxdlgs.h"

#include <commctrl.h>

#include <algorithm>
#include <climits>

// The control's rectangle in client coordinates of its dialog.
static RECT PlaceOf(HWND control)
{
    RECT place = {};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

static bool HasStyle(HWND window, DWORD style)
{
    return (static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)) & style) != 0;
}

// Places the page in the display area of the tab control. The common control uses the area of the sheet's
// original size each time it selects a page.
static void TakePlace(HWND page, WINDOWPOS* given)
{
    const HWND sheet = GetParent(page);
    const auto tabs = reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETTABCONTROL, 0, 0));
    RECT place = {};
    if (GetClientRect(tabs, &place))
    {
        SendMessageW(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&place));
        MapWindowPoints(tabs, sheet, reinterpret_cast<POINT*>(&place), 2);
        given->x = place.left;
        given->y = place.top;
        given->cx = place.right - place.left;
        given->cy = place.bottom - place.top;
        given->flags &= ~static_cast<UINT>(SWP_NOMOVE | SWP_NOSIZE);
    }
}

LRESULT CPropertyPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_WINDOWPOSCHANGING:
        TakePlace(m_hWnd, reinterpret_cast<WINDOWPOS*>(lParam));
        break;
    case WM_SIZE:
        ScrollTo(m_nTop);
        break;
    case WM_VSCROLL:
        Scroll(LOWORD(wParam));
        return 0;
    case WM_MOUSEWHEEL:
        Wheel(static_cast<short>(HIWORD(wParam)));
        return 0;
    default:
        break;
    }
    return CDialog::WindowProc(message, wParam, lParam);
}

// Converts vertical dialog units to pixels.
int CPropertyPage::Units(int units) const
{
    RECT rectangle = {0, 0, 0, units};
    MapDialogRect(m_hWnd, &rectangle);
    return rectangle.bottom;
}

void CPropertyPage::ScrollTo(int top)
{
    if (m_nHeight == 0)
    {
        for (HWND child = GetWindow(m_hWnd, GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT))
        {
            const int bottom = HasStyle(child, WS_VISIBLE) ? static_cast<int>(PlaceOf(child).bottom) : 0;
            m_nHeight = std::max(m_nHeight, bottom);
        }
        // Less than the template's margin, because rounding can make the window some pixels too low for a
        // page that fits.
        m_nHeight += Units(5);
    }
    RECT client = {};
    GetClientRect(m_hWnd, &client);
    const int before = m_nTop;
    m_nTop = std::max(0, std::min(top, m_nHeight - static_cast<int>(client.bottom)));
    if (client.bottom < m_nHeight || HasStyle(m_hWnd, WS_VSCROLL))
    {
        const auto room = static_cast<UINT>(client.bottom);
        const SCROLLINFO bar = {sizeof(bar), SIF_ALL, 0, m_nHeight - 1, room, m_nTop, 0};
        SetScrollInfo(m_hWnd, SB_VERT, &bar, TRUE);
    }
    if (m_nTop == before)
    {
        return;
    }
    // The controls are moved one by one because ScrollWindowEx does not move those of a hidden page.
    for (HWND child = GetWindow(m_hWnd, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    {
        const RECT place = PlaceOf(child);
        ::SetWindowPos(child, nullptr, place.left, place.top + before - m_nTop, 0, 0,
                       SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
    }
    // The background is drawn for the whole page and does not scroll, so everything is redrawn.
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

void CPropertyPage::Scroll(int code)
{
    SCROLLINFO bar = {sizeof(bar), SIF_PAGE | SIF_TRACKPOS, 0, 0, 0, 0, 0};
    GetScrollInfo(m_hWnd, SB_VERT, &bar);
    const int line = Units(8);
    const int page = static_cast<int>(bar.nPage) - line;
    // Indexed by the scroll codes from SB_LINEUP (0) to SB_BOTTOM (7).
    const int dragged = bar.nTrackPos - m_nTop;
    const int by[] = {-line, line, -page, page, dragged, dragged, -m_nTop, m_nHeight};
    if (code <= SB_BOTTOM)
    {
        ScrollTo(m_nTop + by[code]);
    }
}

void CPropertyPage::Wheel(int turn)
{
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    if (lines == WHEEL_PAGESCROLL)
    {
        return Scroll(turn > 0 ? SB_PAGEUP : SB_PAGEDOWN);
    }
    m_nWheel += turn * static_cast<int>(lines) * Units(8);
    ScrollTo(m_nTop - m_nWheel / WHEEL_DELTA);
    m_nWheel %= WHEEL_DELTA;
}

void CPropertyPage::Show(HWND control)
{
    RECT client = {};
    GetClientRect(m_hWnd, &client);
    RECT place = PlaceOf(control);
    // The controls before it that are no tab stops are its label or the title of its group box.
    for (HWND label = GetWindow(control, GW_HWNDPREV); label != nullptr && !HasStyle(label, WS_TABSTOP);
         label = GetWindow(label, GW_HWNDPREV))
    {
        place.top = std::min(place.top, PlaceOf(label).top);
    }
    InflateRect(&place, 0, Units(11));
    ScrollTo(m_nTop + static_cast<int>(std::min(std::max<LONG>(0, place.bottom - client.bottom), place.top)));
}

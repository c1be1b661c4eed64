// CPropertyPage: a page that is higher than its place scrolls.
#include "afxdlgs.h"

#include <commctrl.h>

#include <algorithm>
#include <climits>

namespace
{
// Where the control stands in its dialog.
RECT PlaceOf(HWND control)
{
    RECT place = {};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

bool HasStyle(HWND window, DWORD style)
{
    return (static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)) & style) != 0;
}

// The sheet's part below the tabs. The common control places a page, each time it is selected, by the size
// that the sheet was made with.
void TakePlace(HWND page, WINDOWPOS* given)
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
}  // namespace

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

// Vertical dialog units in pixels.
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
        // Less than the template's margin, as a place that fits may come out lower by some pixels.
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
    // One by one, as ScrollWindowEx leaves those of a hidden page where they are.
    for (HWND child = GetWindow(m_hWnd, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    {
        const RECT place = PlaceOf(child);
        ::SetWindowPos(child, nullptr, place.left, place.top + before - m_nTop, 0, 0,
                       SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
    }
    // All of it, as the background is drawn for the page and not for what scrolls.
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

void CPropertyPage::Scroll(int code)
{
    SCROLLINFO bar = {sizeof(bar), SIF_PAGE | SIF_TRACKPOS, 0, 0, 0, 0, 0};
    GetScrollInfo(m_hWnd, SB_VERT, &bar);
    const int line = Units(8);
    const int page = static_cast<int>(bar.nPage) - line;
    // By the codes from SB_LINEUP to SB_BOTTOM.
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
    // What stands before it and is no control of its own is its label, or the title of its group.
    for (HWND label = GetWindow(control, GW_HWNDPREV); label != nullptr && !HasStyle(label, WS_TABSTOP);
         label = GetWindow(label, GW_HWNDPREV))
    {
        place.top = std::min(place.top, PlaceOf(label).top);
    }
    InflateRect(&place, 0, Units(11));
    ScrollTo(m_nTop + static_cast<int>(std::min(std::max<LONG>(0, place.bottom - client.bottom), place.top)));
}

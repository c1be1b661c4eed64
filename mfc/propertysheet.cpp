#include "afxdlgs.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CPropertySheet, CWnd)

// A private message, posted when the sheet may have been activated.
constexpr UINT ActivatePopup = WM_APP;

// The sheet that is being created. CbtFilter attaches it to its window before the window's first message, so
// that OnNcCreate receives WM_NCCREATE.
static CPropertySheet* g_sheet;
static HHOOK g_hook;

static void UnhookWindowCreate()
{
    UnhookWindowsHookEx(g_hook);
    g_hook = nullptr;
    g_sheet = nullptr;
}

// Activates the window and stops the enumeration if it is the one dialog that is visible and enabled.
// WS_CAPTION excludes tooltips.
static BOOL CALLBACK ActivateIfLive(HWND window, LPARAM)
{
    const LONG style = GetWindowLongW(window, GWL_STYLE) & (WS_VISIBLE | WS_DISABLED | WS_CAPTION);
    const bool isLive = style == (WS_VISIBLE | WS_CAPTION);
    if (isLive && GetActiveWindow() != window)
    {
        SetForegroundWindow(window);
    }
    return !isLive;
}

static LRESULT CALLBACK CbtFilter(int code, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = CallNextHookEx(g_hook, code, wParam, lParam);
    const HWND window = reinterpret_cast<HWND>(wParam);
    TCHAR className[8] = {};
    // Other windows, such as those of an input method, may be created before the dialog.
    if (code == HCBT_CREATEWND && g_sheet != nullptr && GetClassNameW(window, className, 8) == 6 &&
        lstrcmpW(className, _T("#32770")) == 0)
    {
        g_sheet->Attach(window);
        UnhookWindowCreate();
    }
    return result;
}

CPropertySheet::CPropertySheet(LPCTSTR pszCaption) : m_strCaption(pszCaption)
{
    m_psh.dwSize = sizeof(m_psh);
    m_psh.dwFlags = PSH_PROPSHEETPAGE;
    m_psh.hInstance = AfxGetInstanceHandle();
}

BOOL CPropertySheet::SetActivePage(CPropertyPage* pPage)
{
    const auto found = std::find(m_pages.begin(), m_pages.end(), pPage);
    m_psh.nStartPage = static_cast<UINT>(found - m_pages.begin());
    return found != m_pages.end();
}

CPropertyPage* CPropertySheet::GetActivePage()
{
    const auto window = reinterpret_cast<HWND>(SendMessage(PSM_GETCURRENTPAGEHWND));
    return static_cast<CPropertyPage*>(FromHandlePermanent(window));
}

// The common control creates the sheet modeless, because its own modal loop would not call
// PreTranslateMessage.
int CPropertySheet::DoModal()
{
    std::vector<PROPSHEETPAGEW> pages;
    pages.reserve(m_pages.size());
    for (CPropertyPage* page : m_pages)
    {
        pages.push_back(page->m_psp);
    }
    PROPSHEETHEADERW header = m_psh;
    header.dwFlags |= PSH_MODELESS;
    header.pszCaption = m_strCaption;
    header.nPages = static_cast<UINT>(pages.size());
    header.ppsp = pages.data();
    g_sheet = this;
    g_hook = SetWindowsHookExW(WH_CBT, CbtFilter, nullptr, GetCurrentThreadId());
    PropertySheetW(&header);
    // If no window was created, the hook must not catch the next one.
    UnhookWindowCreate();
    if (m_hWnd == nullptr)
    {
        return -1;
    }
    // The common control disables Apply after it has created the first page.
    for (CPropertyPage* page : m_pages)
    {
        page->RestoreMark();
    }
    RunModalLoop();
    const int result = static_cast<int>(SendMessage(PSM_GETRESULT)) > 0 ? IDOK : IDCANCEL;
    DestroyWindow();
    return result;
}

// While a dialog is open the sheet is disabled and receives no keys. If the sheet is activated, for example
// by a second instance, this activates the open dialog instead.
void CPropertySheet::ActivateLastPopup()
{
    if (!::IsWindowEnabled(m_hWnd))
    {
        EnumThreadWindows(GetCurrentThreadId(), ActivateIfLive, 0);
    }
}

BOOL CPropertySheet::ContinueModal()
{
    // The common control has no current page once the sheet is closed.
    if (!CWnd::ContinueModal() || m_hWnd == nullptr || SendMessage(PSM_GETCURRENTPAGEHWND) == 0)
    {
        return FALSE;
    }
    // The last message may have moved the focus.
    RestoreFocus();
    ShowFocus();
    return TRUE;
}

// Moves the focus to an enabled, visible control if it is on none. The Apply button disables itself while it
// has the focus, and a page hidden by Ctrl+Tab may keep it. Keys would then have no effect or change a hidden
// control.
void CPropertySheet::RestoreFocus()
{
    const HWND focus = ::GetFocus();
    const bool isLive = ::IsWindowVisible(focus) && ::IsWindowEnabled(focus);
    if (m_hWnd != nullptr && GetActiveWindow() == m_hWnd && !IsIconic(m_hWnd) && !isLive)
    {
        const HWND next = focus == nullptr ? ::GetDlgItem(m_hWnd, IDOK)
                                           : reinterpret_cast<HWND>(SendMessage(PSM_GETTABCONTROL));
        SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
    }
}

LRESULT CPropertySheet::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
    switch (message)
    {
    case WM_INITDIALOG:
        if ((m_psh.dwFlags & PSH_USEICONID) != 0)
        {
            // The common control sets only the small icon. Alt+Tab shows the big one.
            SendMessage(WM_SETICON, ICON_BIG,
                        reinterpret_cast<LPARAM>(LoadIconW(m_psh.hInstance, m_psh.pszIcon)));
        }
        RememberLayout();
        Fit();
        CenterWindow();
        break;
    case WM_SIZE:
        if (wParam != SIZE_MINIMIZED)
        {
            LayOut();
            Fit();
        }
        break;
    // A disabled window may receive no WM_ACTIVATE, so a change of its z-order counts too.
    case WM_ACTIVATE:
    case WM_ACTIVATEAPP:
    case WM_NCACTIVATE:
        if (LOWORD(wParam) != 0)
        {
            PostMessageW(m_hWnd, ActivatePopup, 0, 0);
        }
        break;
    case WM_WINDOWPOSCHANGED:
        if ((reinterpret_cast<const WINDOWPOS*>(lParam)->flags & SWP_NOACTIVATE) == 0)
        {
            PostMessageW(m_hWnd, ActivatePopup, 0, 0);
        }
        break;
    case ActivatePopup:
        ActivateLastPopup();
        break;
    case WM_EXITSIZEMOVE:
    case WM_DISPLAYCHANGE:
    case WM_SETTINGCHANGE:
        Fit();
        break;
    case WM_MOUSEWHEEL:
        // From the tab control or a button. The page's controls pass theirs to the page.
        if (CPropertyPage* page = GetActivePage())
        {
            page->SendMessage(message, wParam, lParam);
        }
        break;
    case WM_COMMAND:
    case PSM_PRESSBUTTON:
        RestoreFocus();
        [[fallthrough]];
    case WM_SYSCOMMAND:
    case WM_CLOSE:
        // Any of these may have closed the sheet, and a message that was sent does not wake the modal loop.
        PostMessageW(m_hWnd, WM_NULL, 0, 0);
        break;
    default:
        break;
    }
    return result;
}

BOOL CPropertySheet::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST)
    {
        // A message sent by another program may have moved the focus since ContinueModal.
        RestoreFocus();
    }
    if (pMsg->message == WM_KEYDOWN)
    {
        // If the user has scrolled the focused control out of view, typing scrolls it back.
        m_hWndShown = nullptr;
    }
    return SendMessage(PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(pMsg)) != 0;
}

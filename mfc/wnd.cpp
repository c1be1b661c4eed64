// CWnd: handles and objects, the window procedure, and dispatch to handlers.
#include "afxwin.h"

#include <map>
#include <memory>

IMPLEMENT_DYNAMIC(CWnd, CCmdTarget)

// The message that the innermost window procedure is processing.
static MSG g_currentMessage;
// The window that is exchanging data with its controls; null at other times.
static HWND g_lockedOutWindow;

static std::map<HWND, CWnd*> g_permanentMap;
static std::map<HWND, std::unique_ptr<CWnd>> g_temporaryMap;

CWnd::~CWnd()
{
    // A temporary object does not own its window. Any other must not leave a window that calls it.
    if (m_pfnSuper != nullptr)
    {
        DestroyWindow();
    }
}

CWnd* CWnd::FromHandlePermanent(HWND hWnd)
{
    const auto found = g_permanentMap.find(hWnd);
    return found == g_permanentMap.end() ? nullptr : found->second;
}

CWnd* CWnd::FromHandle(HWND hWnd)
{
    if (hWnd == nullptr)
    {
        return nullptr;
    }
    if (CWnd* permanent = FromHandlePermanent(hWnd))
    {
        return permanent;
    }
    std::unique_ptr<CWnd>& temporary = g_temporaryMap[hWnd];
    if (temporary == nullptr)
    {
        temporary = std::make_unique<CWnd>();
        temporary->m_hWnd = hWnd;
    }
    return temporary.get();
}

void CWnd::DeleteTempMap()
{
    g_temporaryMap.clear();
}

void CWnd::Attach(HWND hWnd)
{
    m_hWnd = hWnd;
    g_permanentMap[hWnd] = this;
    m_pfnSuper = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CWnd::AfxWndProc)));
}

void CWnd::Detach()
{
    SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
    g_permanentMap.erase(m_hWnd);
    m_hWnd = nullptr;
    m_pfnSuper = nullptr;
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    if (m_hWnd != nullptr || FromHandlePermanent(hWnd) != nullptr || !IsWindow(hWnd))
    {
        return FALSE;
    }
    Attach(hWnd);
    return TRUE;
}

LRESULT CALLBACK CWnd::AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    CWnd* window = FromHandlePermanent(hWnd);
    if (window == nullptr)
    {
        return ::DefWindowProcW(hWnd, message, wParam, lParam);
    }
    const MSG outer = g_currentMessage;
    g_currentMessage = {hWnd, message, wParam, lParam, 0, {}};
    const LRESULT result = window->WindowProc(message, wParam, lParam);
    // The window's last message.
    if (message == WM_NCDESTROY)
    {
        window->Detach();
    }
    g_currentMessage = outer;
    return result;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if ((message == WM_COMMAND && OnCommand(wParam, lParam)) ||
        (message == WM_NOTIFY && OnNotify(wParam, lParam, &result)))
    {
        return result;
    }
    // F1. Default processing sends a control's message on to its dialog, which sends the help command.
    if (message == WM_HELP && (GetWindowLongW(m_hWnd, GWL_STYLE) & WS_CHILD) == 0 &&
        AfxGetMainWnd() != nullptr)
    {
        AfxGetMainWnd()->SendMessage(WM_COMMAND, ID_HELP);
        return TRUE;
    }
    const AFX_MSGMAP_ENTRY* entry = FindMessageEntry(message, 0, 0);
    return entry != nullptr ? entry->pfn(this, wParam, lParam) : DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return m_pfnSuper != nullptr ? CallWindowProcW(m_pfnSuper, m_hWnd, message, wParam, lParam)
                                 : ::DefWindowProcW(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    if (lParam != 0 && g_lockedOutWindow == m_hWnd)
    {
        return TRUE;
    }
    // Menu and accelerator commands have no control and no notification code. The application handles what
    // the window does not.
    const UINT code = lParam != 0 ? HIWORD(wParam) : 0;
    return OnCmdMsg(LOWORD(wParam), code) ||
           (AfxGetApp() != nullptr && AfxGetApp()->OnCmdMsg(LOWORD(wParam), code));
}

LRESULT CWnd::Default()
{
    return DefWindowProc(g_currentMessage.message, g_currentMessage.wParam, g_currentMessage.lParam);
}

const MSG* CWnd::GetCurrentMessage()
{
    return &g_currentMessage;
}

BOOL CWnd::UpdateData(BOOL bSaveAndValidate)
{
    if (m_hWnd == nullptr)
    {
        return FALSE;
    }
    const HWND outer = g_lockedOutWindow;
    g_lockedOutWindow = m_hWnd;
    CDataExchange exchange(this, bSaveAndValidate);
    BOOL succeeded = TRUE;
    try
    {
        DoDataExchange(&exchange);
    }
    catch (const CUserException&)
    {
        succeeded = FALSE;
    }
    g_lockedOutWindow = outer;
    return succeeded;
}

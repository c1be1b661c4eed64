#include "afxwin.h"

static CWinApp* g_app;

// The program file's name without folder and extension.
static CString ProgramName()
{
    TCHAR path[MAX_PATH] = {};
    TCHAR name[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH - 1);
    _tsplitpath(path, nullptr, nullptr, name, nullptr);
    return name;
}

CWinApp::CWinApp(LPCTSTR lpszAppName)
    : m_strAppName(lpszAppName != nullptr ? CString(lpszAppName) : ProgramName())
{
    g_app = this;
}

CWinApp* AfxGetApp()
{
    return g_app;
}

CWnd* AfxGetMainWnd()
{
    return g_app != nullptr ? g_app->m_pMainWnd : nullptr;
}

HINSTANCE AfxGetInstanceHandle()
{
    return GetModuleHandleW(nullptr);
}

int AfxMessageBox(LPCTSTR lpszText, UINT nType)
{
    const HWND active = GetActiveWindow();
    return MessageBoxW(active != nullptr ? active : AfxGetSafeOwner(nullptr), lpszText, g_app->m_strAppName,
                       nType);
}

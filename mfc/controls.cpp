#include "afxcmn.h"

IMPLEMENT_DYNAMIC(CEdit, CWnd)

int CListBox::AddString(LPCTSTR lpszItem)
{
    return static_cast<int>(SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszItem)));
}

int CComboBox::AddString(LPCTSTR lpszString)
{
    return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszString)));
}

int CComboBox::FindStringExact(int nStartAfter, LPCTSTR lpszString)
{
    return static_cast<int>(SendMessage(CB_FINDSTRINGEXACT, static_cast<WPARAM>(nStartAfter),
                                        reinterpret_cast<LPARAM>(lpszString)));
}

void CComboBox::GetLBText(int nIndex, CString& rString)
{
    const LRESULT length = SendMessage(CB_GETLBTEXTLEN, static_cast<WPARAM>(nIndex));
    SendMessage(CB_GETLBTEXT, static_cast<WPARAM>(nIndex),
                reinterpret_cast<LPARAM>(rString.GetBuffer(static_cast<int>(length) + 1)));
    rString.ReleaseBuffer();
}

BOOL CToolTipCtrl::Create(CWnd* pParentWnd, DWORD dwStyle)
{
    const HWND created = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | dwStyle, CW_USEDEFAULT,
                                         CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, pParentWnd->m_hWnd,
                                         nullptr, AfxGetInstanceHandle(), nullptr);
    return created != nullptr && SubclassWindow(created);
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, LPCTSTR lpszText)
{
    if (m_hWnd == nullptr || pWnd == nullptr)
    {
        return FALSE;
    }
    TTTOOLINFOW tool = {};
    tool.cbSize = sizeof(tool);
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = ::GetParent(pWnd->m_hWnd);
    tool.uId = reinterpret_cast<UINT_PTR>(pWnd->m_hWnd);
    // The control copies the text, although the structure lacks the const.
    tool.lpszText = const_cast<LPWSTR>(lpszText);
    return static_cast<BOOL>(SendMessage(TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool)));
}

#include "afxdlgs.h"

IMPLEMENT_DYNAMIC(CPropertyPage, CDialog)

CPropertyPage::CPropertyPage(UINT nIDTemplate) : CDialog(nIDTemplate)
{
    m_psp.dwSize = sizeof(m_psp);
    m_psp.hInstance = AfxGetInstanceHandle();
    m_psp.pszTemplate = MAKEINTRESOURCEW(nIDTemplate);
    m_psp.pfnDlgProc = PageProc;
    m_psp.lParam = reinterpret_cast<LPARAM>(static_cast<CDialog*>(this));
}

// For a page, WM_INITDIALOG carries the PROPSHEETPAGE, which in turn carries the object.
INT_PTR CALLBACK CPropertyPage::PageProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return AfxDlgProc(hWnd, message, wParam,
                      message == WM_INITDIALOG ? reinterpret_cast<const PROPSHEETPAGEW*>(lParam)->lParam : 0);
}

void CPropertyPage::SetModified(BOOL bChanged)
{
    if (m_hWnd != nullptr)
    {
        m_bModified = bChanged;
        ::SendMessageW(::GetParent(m_hWnd), bChanged ? PSM_CHANGED : PSM_UNCHANGED,
                       reinterpret_cast<WPARAM>(m_hWnd), 0);
    }
}

void CPropertyPage::RestoreMark()
{
    if (m_bModified)
    {
        SetModified(TRUE);
    }
}

BOOL CPropertyPage::OnSetActive()
{
    if (!std::exchange(m_bFirstSetActive, FALSE))
    {
        UpdateData(FALSE);
    }
    return TRUE;
}

BOOL CPropertyPage::OnApply()
{
    OnOK();
    return TRUE;
}

BOOL CPropertyPage::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    const NMHDR* header = reinterpret_cast<const NMHDR*>(lParam);
    LRESULT answer = 0;
    switch (header->code)
    {
    case static_cast<UINT>(PSN_SETACTIVE):
        answer = OnSetActive() ? 0 : -1;
        // The common control ignores a page's mark while it creates the page, so the mark is set again here.
        RestoreMark();
        break;
    case static_cast<UINT>(PSN_KILLACTIVE):
        answer = OnKillActive() ? FALSE : TRUE;
        break;
    case static_cast<UINT>(PSN_APPLY):
        answer = OnApply() ? PSNRET_NOERROR : PSNRET_INVALID_NOCHANGEPAGE;
        break;
    default:
        return CDialog::OnNotify(wParam, lParam, pResult);
    }
    // The window is subclassed, so this is the message's result and DWLP_MSGRESULT is not used.
    *pResult = answer;
    return TRUE;
}

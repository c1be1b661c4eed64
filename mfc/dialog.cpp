#include "afxdialogex.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)
IMPLEMENT_DYNAMIC(CDialogEx, CDialog)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_COMMAND(IDOK, &CDialog::OnOK)
    ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

INT_PTR CALLBACK AfxDlgProc(HWND hWnd, UINT message, WPARAM, LPARAM lParam)
{
    if (message != WM_INITDIALOG)
    {
        return FALSE;
    }
    auto* dialog = reinterpret_cast<CDialog*>(lParam);
    dialog->Attach(hWnd);
    return dialog->OnInitDialog();
}

HWND AfxGetSafeOwner(const CWnd* pParent)
{
    const CWnd* window = pParent != nullptr && pParent->m_hWnd != nullptr ? pParent : AfxGetMainWnd();
    return window != nullptr ? GetAncestor(window->m_hWnd, GA_ROOT) : nullptr;
}

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd) : m_nIDTemplate(nIDTemplate), m_pParentWnd(pParentWnd) {}

int CDialog::DoModal()
{
    const HWND owner = AfxGetSafeOwner(m_pParentWnd);
    const BOOL wasDisabled = ::EnableWindow(owner, FALSE);
    m_nModalResult = -1;
    m_bContinueModal = TRUE;
    CreateDialogParamW(AfxGetInstanceHandle(), MAKEINTRESOURCEW(m_nIDTemplate), owner, AfxDlgProc,
                       reinterpret_cast<LPARAM>(this));
    // If OnInitDialog has ended the dialog, it is never shown.
    if (m_hWnd != nullptr && m_bContinueModal)
    {
        RunModalLoop();
    }
    // The owner must be enabled before the dialog is destroyed; otherwise another program is activated.
    ::EnableWindow(owner, !wasDisabled);
    const bool active = m_hWnd != nullptr && GetActiveWindow() == m_hWnd;
    DestroyWindow();
    if (active && owner != nullptr)
    {
        SetActiveWindow(owner);
    }
    return m_nModalResult;
}

BOOL CDialog::OnInitDialog()
{
    UpdateData(FALSE);
    if ((GetWindowLongW(m_hWnd, GWL_STYLE) & WS_CHILD) == 0)
    {
        CenterWindow();
    }
    return TRUE;
}

void CDialog::OnOK()
{
    if (UpdateData(TRUE))
    {
        EndDialog(IDOK);
    }
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg)
{
    return m_hWnd != nullptr && IsDialogMessageW(m_hWnd, pMsg);
}

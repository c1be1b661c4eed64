#include "shell/SettingsSheet.h"

#include "resource.h"

IMPLEMENT_DYNAMIC(CSettingsSheet, CPropertySheet)

BEGIN_MESSAGE_MAP(CSettingsSheet, CPropertySheet)
    ON_WM_NCCREATE()
END_MESSAGE_MAP()

CSettingsSheet::CSettingsSheet(LPCTSTR caption) : CPropertySheet(caption)
{
    m_psh.dwFlags &= ~static_cast<DWORD>(PSH_HASHELP);
    // The taskbar needs an icon to show for the minimised sheet. Windows does not show the "?" button
    // together with the minimise and maximise boxes.
    m_psh.dwFlags |= PSH_USEICONID | PSH_NOCONTEXTHELP;
    m_psh.pszIcon = MAKEINTRESOURCEW(IDR_MAINFRAME);
}

void CSettingsSheet::Join(CSettingsPage& page)
{
    if (page.ConcernsInstalledTool())
    {
        page.GetPSP().dwFlags &= ~static_cast<DWORD>(PSP_HASHELP);
        AddPage(&page);
    }
}

BOOL CSettingsSheet::OnNcCreate(LPCREATESTRUCTW lpCreateStruct)
{
    if (!CPropertySheet::OnNcCreate(lpCreateStruct))
    {
        return FALSE;
    }
    const LONG style = GetWindowLongW(m_hWnd, GWL_STYLE);
    SetWindowLongW(m_hWnd, GWL_STYLE, style | WS_MINIMIZEBOX | WS_MAXIMIZEBOX);
    return TRUE;
}

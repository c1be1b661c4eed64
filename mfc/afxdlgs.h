// Property sheets and the file dialog.
#pragma once

#include "afxwin.h"

#include <commdlg.h>
#include <prsht.h>

#include <utility>
#include <vector>

class CPropertyPage : public CDialog
{
    DECLARE_DYNAMIC(CPropertyPage)

public:
    // The page's tab shows the template's title.
    explicit CPropertyPage(UINT nIDTemplate);

    PROPSHEETPAGEW& GetPSP() { return m_psp; }

    // Marks this page as modified, or clears the mark. The sheet's Apply button is enabled while any page is
    // marked. A page without a window cannot be marked.
    void SetModified(BOOL bChanged = TRUE);

    // Moves members to controls, except the first time, when OnInitDialog has just done so. FALSE makes the
    // sheet activate another page.
    virtual BOOL OnSetActive();
    // Moves controls to members. FALSE keeps the sheet on this page.
    virtual BOOL OnKillActive() { return UpdateData(TRUE); }
    virtual BOOL OnApply();

    // The sheet handles the dialog keys of its pages. If a page called IsDialogMessage too, Tab could not
    // leave the page.
    BOOL PreTranslateMessage(MSG*) override { return FALSE; }

protected:
    void OnOK() override { SetModified(FALSE); }
    void OnCancel() override {}
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    friend class CPropertySheet;
    static INT_PTR CALLBACK PageProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    // Marks the page again if it is marked, because the common control has lost the mark.
    void RestoreMark();
    // Scrolls the least distance that brings the control and its label into view.
    void Show(HWND control);
    void ScrollTo(int top);
    void Scroll(int code);
    void Wheel(int turn);
    int Units(int units) const;

    int m_nHeight = 0;  // of the page with its bottom margin, in pixels; 0 until it is first needed
    int m_nTop = 0;     // scroll position in pixels
    int m_nWheel = 0;   // wheel movement not scrolled yet, in pixels times WHEEL_DELTA
    PROPSHEETPAGEW m_psp = {};
    BOOL m_bModified = FALSE;
    BOOL m_bFirstSetActive = TRUE;
};

class CPropertySheet : public CWnd
{
    DECLARE_DYNAMIC(CPropertySheet)

public:
    explicit CPropertySheet(LPCTSTR pszCaption);

    PROPSHEETHEADERW m_psh = {};

    // Adds a page. The sheet keeps a pointer; the caller owns the page. Its window is created when the page
    // is first displayed.
    void AddPage(CPropertyPage* pPage) { m_pages.push_back(pPage); }
    // Sets the page that is active when the sheet opens. FALSE if the page is not in the sheet.
    BOOL SetActivePage(CPropertyPage* pPage);
    // The active page, or null.
    CPropertyPage* GetActivePage();

    // IDOK, IDCANCEL, or -1 if the sheet could not be created.
    virtual int DoModal();

    BOOL PreTranslateMessage(MSG* pMsg) override;
    BOOL ContinueModal() override;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void RestoreFocus();
    void ShowFocus();
    void ActivateLastPopup();
    void RememberLayout();
    void LayOut();
    void Fit();

    CString m_strCaption;
    std::vector<CPropertyPage*> m_pages;
    HWND m_hWndShown = nullptr;  // the focused control that was last scrolled into view
    // The layout that the common control made: the window's size, its client area, and the places of the tab
    // control and the buttons.
    SIZE m_size = {};
    RECT m_client = {};
    std::vector<std::pair<HWND, RECT>> m_controls;
};

// The system's dialog for opening a file.
class CFileDialog
{
public:
    // lpszFilter is "text|pattern|text|pattern||"; dwFlags are OFN_ flags. Only the Vista-style open dialog
    // is implemented, so bOpenFileDialog, dwSize and bVistaStyle have no effect. The texts are copied; the
    // parent must outlive DoModal.
    CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt, LPCTSTR lpszFileName, DWORD dwFlags,
                LPCTSTR lpszFilter, CWnd* pParentWnd, DWORD dwSize, BOOL bVistaStyle);

    // IDOK or IDCANCEL; also IDCANCEL if the dialog could not be shown.
    INT_PTR DoModal();
    // The full path of the chosen file; empty unless DoModal returned IDOK.
    CString GetPathName() const { return m_strPathName; }

private:
    CString m_strDefExt;
    CString m_strFileName;  // the initial name
    DWORD m_dwFlags;
    CString m_strFilter;
    CString m_strPathName;
    CWnd* m_pParentWnd;
};

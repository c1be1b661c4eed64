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
    // The tab shows the template's title.
    explicit CPropertyPage(UINT nIDTemplate);

    PROPSHEETPAGEW& GetPSP() { return m_psp; }

    // Marks this page, or takes its mark away. The sheet's Apply button is enabled while some page is marked.
    // A page that has no window yet can't be marked.
    void SetModified(BOOL bChanged = TRUE);

    // Members to controls, except the first time, when OnInitDialog has just done it. False: another page.
    virtual BOOL OnSetActive();
    // Controls to members. False: the sheet stays on this page.
    virtual BOOL OnKillActive() { return UpdateData(TRUE); }
    virtual BOOL OnApply();

    // The sheet runs the dialog keys for its pages; a page that did so as well would take Tab for itself.
    BOOL PreTranslateMessage(MSG*) override { return FALSE; }

protected:
    void OnOK() override { SetModified(FALSE); }
    void OnCancel() override {}
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    friend class CPropertySheet;
    static INT_PTR CALLBACK PageProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    // Tells the common control this page's mark again.
    void RestoreMark();
    // Scrolls as little as brings the control into view, with the label before it.
    void Show(HWND control);
    void ScrollTo(int top);
    void Scroll(int code);
    void Wheel(int turn);
    int Units(int units) const;

    int m_nHeight = 0;  // down to the margin below the last control
    int m_nTop = 0;     // how much of it lies above the window
    int m_nWheel = 0;   // turned, and not enough to scroll by
    PROPSHEETPAGEW m_psp = {};
    BOOL m_bModified = FALSE;
    BOOL m_bFirstSetActive = TRUE;
};

class CPropertySheet : public CWnd
{
    DECLARE_DYNAMIC(CPropertySheet)

public:
    explicit CPropertySheet(LPCTSTR pszCaption, CWnd* pParentWnd = nullptr, UINT iSelectPage = 0);

    PROPSHEETHEADERW m_psh = {};

    // Appends a page, which the caller keeps. Its window is made when the page is first displayed.
    void AddPage(CPropertyPage* pPage) { m_pages.push_back(pPage); }
    // Before the sheet is up: the page it opens on. False if the page isn't in the sheet.
    BOOL SetActivePage(CPropertyPage* pPage);
    // The page in front, or null.
    CPropertyPage* GetActivePage();

    // IDOK, IDCANCEL, or -1 if the sheet could not be made.
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
    CWnd* m_pParentWnd;
    std::vector<CPropertyPage*> m_pages;
    HWND m_hWndShown = nullptr;  // had the focus when that was last shown
    // As the common control has made them: the window's size, its client area, and its tabs and buttons.
    SIZE m_size = {};
    RECT m_client = {};
    std::vector<std::pair<HWND, RECT>> m_controls;
};

// The system's own dialog for choosing one file.
class CFileDialog
{
public:
    // lpszFilter: "text|pattern|text|pattern||". dwFlags: OFN_ flags. Of the two kinds only the open dialog
    // in the Vista style is offered; dwSize and the style's flag are there for the signature.
    explicit CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt = nullptr, LPCTSTR lpszFileName = nullptr,
                         DWORD dwFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, LPCTSTR lpszFilter = nullptr,
                         CWnd* pParentWnd = nullptr, DWORD dwSize = 0, BOOL bVistaStyle = TRUE);

    OPENFILENAMEW m_ofn = {};

    // IDOK or IDCANCEL; IDCANCEL also if the dialog could not be shown.
    INT_PTR DoModal();
    // The full path chosen; empty before DoModal gave IDOK.
    CString GetPathName() const { return m_strPathName; }

private:
    TCHAR m_szFileName[MAX_PATH] = {};  // the name to start with
    CString m_strFilter;
    CString m_strPathName;
    CWnd* m_pParentWnd;
};

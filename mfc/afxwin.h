// Windows, dialogs, standard controls and the application object.
#pragma once

#include "afx.h"
#include "afxmsg_.h"

class CDataExchange;

class CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)

public:
    // Calls the handler of a command or control notification. FALSE if the message maps have none.
    BOOL OnCmdMsg(UINT nID, UINT nCode);

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const { return GetThisMessageMap(); }
    const AFX_MSGMAP_ENTRY* FindMessageEntry(UINT nMessage, UINT nCode, UINT nID) const;
};

// A window. An object is attached to at most one window and a window to at most one object. The code that
// creates the object owns it. The window may be destroyed first; if the object is destroyed first, it
// destroys its window. Every operation on an object without a window does nothing and returns 0.
class CWnd : public CCmdTarget
{
    DECLARE_DYNAMIC(CWnd)

public:
    HWND m_hWnd = nullptr;

    ~CWnd() override;

    // The object attached to the window, or null.
    static CWnd* FromHandlePermanent(HWND hWnd);
    // The object attached to the window, or a temporary object that is valid until the message loop is next
    // idle.
    static CWnd* FromHandle(HWND hWnd);
    static void DeleteTempMap();

    BOOL SubclassWindow(HWND hWnd);
    BOOL DestroyWindow() { return m_hWnd != nullptr && ::DestroyWindow(m_hWnd); }

    // Null if the window has no such child.
    CWnd* GetDlgItem(int nID) const { return FromHandle(::GetDlgItem(m_hWnd, nID)); }
    // If the control has the focus when it is disabled, the focus moves to the next control of the dialog.
    BOOL EnableWindow(BOOL bEnable = TRUE);
    // Removes styles, then adds some. FALSE if this changes nothing.
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd);
    BOOL ShowWindow(int nCmdShow) { return ::ShowWindow(m_hWnd, nCmdShow); }
    void SetWindowText(LPCTSTR lpszString) { ::SetWindowTextW(m_hWnd, lpszString); }
    void GetWindowText(CString& rString) const;
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    // Centres the window over its owner, or on its monitor. The window stays inside that monitor.
    void CenterWindow();

    // Moves members to controls (FALSE) or controls to members (TRUE) with DoDataExchange. Until it returns,
    // notifications of this window's controls are dropped. FALSE if the exchange failed.
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);
    // In MFC this enables tooltips that request their text by a notification. All tooltips here are added to
    // a CToolTipCtrl, so it does nothing.
    BOOL EnableToolTips(BOOL) { return TRUE; }

    virtual BOOL PreTranslateMessage(MSG*) { return FALSE; }

    // Shows the window and runs a message loop until EndModalLoop is called or ContinueModal returns FALSE.
    // Returns EndModalLoop's result, or -1 on WM_QUIT.
    int RunModalLoop();
    void EndModalLoop(int nResult);
    virtual BOOL ContinueModal() { return m_bContinueModal; }

    // Attaches the object to the window and subclasses it, so that WindowProc receives the window's messages.
    void Attach(HWND hWnd);

protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM, LPARAM, LRESULT*) { return FALSE; }
    virtual void DoDataExchange(CDataExchange*) {}

    // Passes the current message to DefWindowProc with its original arguments.
    LRESULT Default();
    static const MSG* GetCurrentMessage();

    afx_msg BOOL OnNcCreate(LPCREATESTRUCTW) { return static_cast<BOOL>(Default()); }

    BOOL m_bContinueModal = FALSE;
    int m_nModalResult = 0;

private:
    static LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    void Detach();

    WNDPROC m_pfnSuper = nullptr;
};

class CStatic : public CWnd
{
};

class CButton : public CWnd
{
public:
    int GetCheck() { return static_cast<int>(SendMessage(BM_GETCHECK)); }
};

class CEdit : public CWnd
{
    DECLARE_DYNAMIC(CEdit)
};

class CListBox : public CWnd
{
public:
    int AddString(LPCTSTR lpszItem);
    // -1 clears the selection.
    int SetCurSel(int nSelect) { return static_cast<int>(SendMessage(LB_SETCURSEL, nSelect)); }
};

class CComboBox : public CWnd
{
public:
    int AddString(LPCTSTR lpszString);
    int SetCurSel(int nSelect) { return static_cast<int>(SendMessage(CB_SETCURSEL, nSelect)); }
    // CB_ERR if nothing is selected.
    int GetCurSel() { return static_cast<int>(SendMessage(CB_GETCURSEL)); }
    // CB_ERR if there is no such item. The search begins after nStartAfter and wraps around.
    int FindStringExact(int nStartAfter, LPCTSTR lpszString);
    // Leaves the text empty if there is no such item.
    void GetLBText(int nIndex, CString& rString);
};

class CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)

public:
    // Keeps the pointer to the parent, which must outlive DoModal.
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);

    // Returns EndDialog's result, or -1 if the dialog could not be created.
    virtual int DoModal();
    void EndDialog(int nResult) { EndModalLoop(nResult); }

    virtual BOOL OnInitDialog();
    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    virtual void OnOK();
    virtual void OnCancel() { EndDialog(IDCANCEL); }

    UINT m_nIDTemplate;
    CWnd* m_pParentWnd;

    DECLARE_MESSAGE_MAP()
};

// The dialog procedure of all dialogs. WM_INITDIALOG carries the CDialog, which it attaches to the window
// before it calls OnInitDialog.
INT_PTR CALLBACK AfxDlgProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);

// The application: one static object. WinMain calls its InitInstance, which runs modal windows. No message
// loop follows, whatever InitInstance returns.
class CWinApp : public CCmdTarget
{
public:
    // A null name stands for the program file's name without its extension.
    explicit CWinApp(LPCTSTR lpszAppName = nullptr);

    virtual BOOL InitInstance() { return TRUE; }

    CString m_strAppName;
    CWnd* m_pMainWnd = nullptr;  // not owned

protected:
    // In MFC this sets the registry key of the framework's own settings. The editor has none, so it does
    // nothing.
    void SetRegistryKey(LPCTSTR) {}
    // There is no help file, so the command does nothing.
    afx_msg void OnHelp() {}
};

CWinApp* AfxGetApp();
CWnd* AfxGetMainWnd();
HINSTANCE AfxGetInstanceHandle();
// Shows a message box with the application's name as its title. Its owner is the active window.
int AfxMessageBox(LPCTSTR lpszText, UINT nType);
// The top-level window that a dialog with this parent disables. For null it is the main window's.
HWND AfxGetSafeOwner(const CWnd* pParent);

constexpr UINT ID_HELP = 0xE146;

#include "afxdd_.h"

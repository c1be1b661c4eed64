// Windows, dialogs, standard controls and the application object.
#pragma once

#include "afx.h"
#include "afxmsg_.h"

class CDataExchange;

class CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)

public:
    // Runs the handler that the message maps name for a command or control notification; false if there is
    // none.
    BOOL OnCmdMsg(UINT nID, UINT nCode);

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const { return GetThisMessageMap(); }
    const AFX_MSGMAP_ENTRY* FindMessageEntry(UINT nMessage, UINT nCode, UINT nID) const;
};

// A window. An object is attached to at most one window and a window to at most one object; the object
// belongs to whoever made it and outlives or predeceases its window as it likes. Every operation on an object
// that has no window does nothing and gives 0.
class CWnd : public CCmdTarget
{
    DECLARE_DYNAMIC(CWnd)

public:
    HWND m_hWnd = nullptr;

    ~CWnd() override;

    // The object attached to the window, or null.
    static CWnd* FromHandlePermanent(HWND hWnd);
    // The same, or a temporary object for a window that has none. Good until the message loop is next idle.
    static CWnd* FromHandle(HWND hWnd);
    static void DeleteTempMap();

    BOOL SubclassWindow(HWND hWnd);
    BOOL DestroyWindow() { return m_hWnd != nullptr && ::DestroyWindow(m_hWnd); }

    // Null if the window has no such child.
    CWnd* GetDlgItem(int nID) const;
    // A control that is disabled hands the focus on to the next of its dialog, if it has it.
    BOOL EnableWindow(BOOL bEnable = TRUE);
    // Takes styles away, then adds some. False if that changed nothing.
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd);
    BOOL ShowWindow(int nCmdShow) { return ::ShowWindow(m_hWnd, nCmdShow); }
    void SetWindowText(LPCTSTR lpszString) { ::SetWindowTextW(m_hWnd, lpszString); }
    void GetWindowText(CString& rString) const;
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    // Centres the window over its owner, or on its monitor, and keeps it on that monitor.
    void CenterWindow();

    // Moves members to controls (false) or controls to members (true) by DoDataExchange. While it runs the
    // notifications of this window's controls are dropped. False if the exchange failed.
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);
    // Switches the class library's own tips on, which take their texts on request. All tips here have theirs
    // from CToolTipCtrl::AddTool, so this has no further effect.
    BOOL EnableToolTips(BOOL) { return TRUE; }

    virtual BOOL PreTranslateMessage(MSG*) { return FALSE; }

    // Shows the window and runs messages until EndModalLoop, or until ContinueModal says no; gives
    // EndModalLoop's result, or -1 if the program is to end.
    int RunModalLoop();
    void EndModalLoop(int nResult);
    virtual BOOL ContinueModal() { return m_bContinueModal; }

    // Makes this the window's object, so that its messages come to WindowProc.
    void Attach(HWND hWnd);

protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM, LPARAM, LRESULT*) { return FALSE; }
    virtual void DoDataExchange(CDataExchange*) {}

    // Default processing of the message in hand, with the arguments it came with.
    LRESULT Default();
    static const MSG* GetCurrentMessage();

    afx_msg BOOL OnNcCreate(LPCREATESTRUCTW) { return static_cast<BOOL>(Default()); }

    DECLARE_MESSAGE_MAP()

    BOOL m_bContinueModal = FALSE;
    int m_nModalResult = 0;

private:
    static LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    void Detach();

    WNDPROC m_pfnSuper = nullptr;
};

class CStatic : public CWnd
{
    DECLARE_DYNAMIC(CStatic)
};

class CButton : public CWnd
{
    DECLARE_DYNAMIC(CButton)

public:
    int GetCheck() { return static_cast<int>(SendMessage(BM_GETCHECK)); }
};

class CEdit : public CWnd
{
    DECLARE_DYNAMIC(CEdit)
};

class CListBox : public CWnd
{
    DECLARE_DYNAMIC(CListBox)

public:
    int AddString(LPCTSTR lpszItem);
    // -1 takes the selection away.
    int SetCurSel(int nSelect);
};

class CComboBox : public CWnd
{
    DECLARE_DYNAMIC(CComboBox)

public:
    int AddString(LPCTSTR lpszString);
    int SetCurSel(int nSelect);
    // CB_ERR if nothing is selected.
    int GetCurSel() { return static_cast<int>(SendMessage(CB_GETCURSEL)); }
    // CB_ERR if there is none. The search begins behind nStartAfter and wraps.
    int FindStringExact(int nStartAfter, LPCTSTR lpszString);
    // Leaves the text empty if there is no such item.
    void GetLBText(int nIndex, CString& rString);
};

class CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)

public:
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);

    // IDOK, IDCANCEL or what EndDialog was given; -1 if the dialog could not be made.
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

// The dialog procedure of every dialog: WM_INITDIALOG names the object, which takes the window and goes on to
// OnInitDialog.
INT_PTR CALLBACK AfxDlgProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);

// The application. One object, a static; WinMain runs InitInstance of it, whose windows are modal: no loop
// of messages comes after it, whatever it gives.
class CWinApp : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinApp)

public:
    // With no name the application is called as its file is, without the extension.
    explicit CWinApp(LPCTSTR lpszAppName = nullptr);
    ~CWinApp() override;

    virtual BOOL InitInstance() { return TRUE; }
    virtual int ExitInstance() { return 0; }

    CString m_strAppName;
    CWnd* m_pMainWnd = nullptr;  // not owned

protected:
    // Names the key that the class library's own settings would lie under. There are none here.
    void SetRegistryKey(LPCTSTR) {}
    // There is no help file: the command is taken and nothing follows.
    afx_msg void OnHelp() {}

    DECLARE_MESSAGE_MAP()
};

CWinApp* AfxGetApp();
CWnd* AfxGetMainWnd();
HINSTANCE AfxGetInstanceHandle();
// Titled with the application's name and owned by the window the user is in.
int AfxMessageBox(LPCTSTR lpszText, UINT nType);
// The top-level window that a dialog started from the window should disable; from the main window if null.
HWND AfxGetSafeOwner(const CWnd* pParent);

constexpr UINT ID_HELP = 0xE146;

#include "afxdd_.h"

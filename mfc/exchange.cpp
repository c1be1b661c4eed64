#include "afxwin.h"

#include <limits>
#include <vector>

HWND CDataExchange::PrepareCtrl(int nIDC)
{
    m_hWndLastControl = ::GetDlgItem(m_pDlgWnd->m_hWnd, nIDC);
    m_bEditLastControl = false;
    if (m_hWndLastControl == nullptr)
    {
        Fail();
    }
    return m_hWndLastControl;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC)
{
    const HWND control = PrepareCtrl(nIDC);
    m_bEditLastControl = true;
    return control;
}

void CDataExchange::Fail()
{
    if (m_bSaveAndValidate && m_hWndLastControl != nullptr)
    {
        SetFocus(m_hWndLastControl);
        if (m_bEditLastControl)
        {
            SendMessageW(m_hWndLastControl, EM_SETSEL, 0, -1);
        }
    }
    throw CUserException();
}

void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl)
{
    if (rControl.m_hWnd == nullptr)
    {
        rControl.SubclassWindow(pDX->PrepareCtrl(nIDC));
    }
}

static CString WindowText(HWND control)
{
    CString text;
    CWnd::FromHandle(control)->GetWindowText(text);
    return text;
}

// Setting the same text would move the caret.
static void SetTextIfDifferent(HWND control, const CString& text)
{
    if (!(WindowText(control) == text))
    {
        SetWindowTextW(control, text);
    }
}

// Parses the whole text as one decimal number from `least` to `most`. Blanks before and after it are allowed.
static bool ParseNumber(LPCTSTR text, long long least, long long most, long long* number)
{
    TCHAR* end = nullptr;
    *number = _tcstoi64(text, &end, 10);
    const bool hasDigits = end != text;
    while (*end == _T(' ') || *end == _T('\t'))
    {
        ++end;
    }
    return hasDigits && *end == 0 && *number >= least && *number <= most;
}

template <class Number>
static void ExchangeNumber(CDataExchange* pDX, int nIDC, Number& value, LPCTSTR format, LPCTSTR prompt)
{
    const HWND control = pDX->PrepareEditCtrl(nIDC);
    if (!pDX->m_bSaveAndValidate)
    {
        CString text;
        text.Format(format, value);
        SetTextIfDifferent(control, text);
        return;
    }
    long long number = 0;
    using Limits = std::numeric_limits<Number>;
    if (!ParseNumber(WindowText(control), Limits::min(), Limits::max(), &number))
    {
        AfxMessageBox(prompt, MB_OK | MB_ICONEXCLAMATION);
        pDX->Fail();
    }
    value = static_cast<Number>(number);
}

// Exchanges a number that one message gets and another one sets.
static void ExchangeByMessage(CDataExchange* pDX, int nIDC, int& value, UINT get, UINT set)
{
    const HWND control = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
    {
        value = static_cast<int>(SendMessageW(control, get, 0, 0));
    }
    else
    {
        SendMessageW(control, set, static_cast<WPARAM>(value), 0);
    }
}

void DDX_Text(CDataExchange* pDX, int nIDC, int& value)
{
    ExchangeNumber(pDX, nIDC, value, _T("%d"), _T("Please enter an integer."));
}

void DDX_Text(CDataExchange* pDX, int nIDC, UINT& value)
{
    ExchangeNumber(pDX, nIDC, value, _T("%u"), _T("Please enter a positive integer."));
}

void DDX_Text(CDataExchange* pDX, int nIDC, CString& value)
{
    const HWND control = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
    {
        value = WindowText(control);
    }
    else
    {
        SetTextIfDifferent(control, value);
    }
}

void DDX_Check(CDataExchange* pDX, int nIDC, int& value)
{
    if (!pDX->m_bSaveAndValidate && (value < BST_UNCHECKED || value > BST_INDETERMINATE))
    {
        value = BST_UNCHECKED;
    }
    ExchangeByMessage(pDX, nIDC, value, BM_GETCHECK, BM_SETCHECK);
}

void DDX_Radio(CDataExchange* pDX, int nIDC, int& value)
{
    std::vector<HWND> buttons;
    HWND control = pDX->PrepareCtrl(nIDC);
    do
    {
        if ((SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0)
        {
            buttons.push_back(control);
        }
        control = GetWindow(control, GW_HWNDNEXT);
    } while (control != nullptr && (GetWindowLongW(control, GWL_STYLE) & WS_GROUP) == 0);

    const int count = static_cast<int>(buttons.size());
    int checked = pDX->m_bSaveAndValidate ? -1 : value;
    for (int position = 0; position < count; ++position)
    {
        int state = position == value ? BST_CHECKED : BST_UNCHECKED;
        ExchangeByMessage(pDX, GetDlgCtrlID(buttons[position]), state, BM_GETCHECK, BM_SETCHECK);
        checked = state != BST_UNCHECKED ? position : checked;
    }
    value = checked;
    // Tab must reach the checked button: any other would check itself and send BN_CLICKED when it gets the
    // focus.
    const int tabStop = value >= 0 && value < count ? value : 0;
    for (int position = 0; position < count; ++position)
    {
        CWnd::FromHandle(buttons[position])->ModifyStyle(WS_TABSTOP, position == tabStop ? WS_TABSTOP : 0);
    }
}

void DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index)
{
    ExchangeByMessage(pDX, nIDC, index, LB_GETCURSEL, LB_SETCURSEL);
}

void DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index)
{
    ExchangeByMessage(pDX, nIDC, index, CB_GETCURSEL, CB_SETCURSEL);
}

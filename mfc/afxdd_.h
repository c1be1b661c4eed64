// Dialog data exchange: one call ties one control to one member.
#pragma once

#include "afxwin.h"

class CDataExchange
{
public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate)
        : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd)
    {
    }

    BOOL m_bSaveAndValidate;  // true: controls to members
    CWnd* m_pDlgWnd;

    // The control's window; an exchange with a control that is not there fails.
    HWND PrepareCtrl(int nIDC);
    HWND PrepareEditCtrl(int nIDC);
    // Puts the focus on the control prepared last, an edit's text selected, and ends the exchange.
    [[noreturn]] void Fail();

private:
    HWND m_hWndLastControl = nullptr;
    bool m_bEditLastControl = false;
};

// Subclasses the control at the first exchange.
void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);

// A text that is no number of the type (an empty one, or one out of range, included) is refused with a
// message box; the member keeps its value and the exchange fails.
void DDX_Text(CDataExchange* pDX, int nIDC, int& value);
void DDX_Text(CDataExchange* pDX, int nIDC, UINT& value);
void DDX_Text(CDataExchange* pDX, int nIDC, CString& value);

// A value outside 0 to 2 shows as unchecked.
void DDX_Check(CDataExchange* pDX, int nIDC, int& value);
// nIDC is the first radio button of its group; the value is the position of the checked one, -1 for none. The
// checked one, or with none the first, becomes the group's tab stop.
void DDX_Radio(CDataExchange* pDX, int nIDC, int& value);
void DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index);
void DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index);

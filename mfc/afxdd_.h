// Dialog data exchange. Each DDX call exchanges one control with one member.
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

    // Returns the control's window. Fails the exchange if the dialog has no such control.
    HWND PrepareCtrl(int nIDC);
    HWND PrepareEditCtrl(int nIDC);
    // Ends the exchange by an exception. If members are being saved, the control prepared last gets the
    // focus, and the text of an edit is selected.
    [[noreturn]] void Fail();

private:
    HWND m_hWndLastControl = nullptr;
    bool m_bEditLastControl = false;
};

// Subclasses the control at the first exchange.
void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);

// The number forms accept only a number of the type. For any other text, such as an empty one, they show a
// message box and fail the exchange; the member does not change.
void DDX_Text(CDataExchange* pDX, int nIDC, int& value);
void DDX_Text(CDataExchange* pDX, int nIDC, UINT& value);
void DDX_Text(CDataExchange* pDX, int nIDC, CString& value);

// A value outside 0 to 2 is shown as unchecked.
void DDX_Check(CDataExchange* pDX, int nIDC, int& value);
// nIDC is the first radio button of its group. The value is the index of the checked button, or -1 if none is
// checked. The checked button, or else the first, becomes the group's tab stop.
void DDX_Radio(CDataExchange* pDX, int nIDC, int& value);
void DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index);
void DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index);

// Common controls.
#pragma once

#include "afxwin.h"

#include <commctrl.h>

class CToolTipCtrl : public CWnd
{
    DECLARE_DYNAMIC(CToolTipCtrl)

public:
    // False if the control could not be made.
    BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0);
    // The tool is the window itself, anywhere on it: a part of one is not offered. The text is copied.
    BOOL AddTool(CWnd* pWnd, LPCTSTR lpszText);
};

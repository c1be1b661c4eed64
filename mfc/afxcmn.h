// Common controls.
#pragma once

#include "afxwin.h"

#include <commctrl.h>

class CToolTipCtrl : public CWnd
{
public:
    // FALSE if the control could not be created.
    BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0);
    // The tool is the whole window; rectangles within a window are not supported. The text is copied.
    BOOL AddTool(CWnd* pWnd, LPCTSTR lpszText);
};

#pragma once

#include "afxwin.h"

// MFC's CDialogEx adds custom backgrounds, which the editor does not use.
class CDialogEx : public CDialog
{
    DECLARE_DYNAMIC(CDialogEx)

public:
    using CDialog::CDialog;
};

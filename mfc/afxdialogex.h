#pragma once

#include "afxwin.h"

// A dialog; the backgrounds that the class library paints for it are not used here.
class CDialogEx : public CDialog
{
    DECLARE_DYNAMIC(CDialogEx)

public:
    using CDialog::CDialog;
};

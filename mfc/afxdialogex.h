#pragma once

#include "afxwin.h"

// MFC's CDialogEx adds custom backgrounds, which the editor does not use.
using CDialogEx = CDialog;

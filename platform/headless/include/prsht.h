// Property sheets.
#pragma once

#include "windows.h"

struct _PSP;
typedef struct _PSP* HPROPSHEETPAGE;
struct _PROPSHEETPAGEW;
typedef UINT(CALLBACK* LPFNPSPCALLBACKW)(HWND window, UINT message, struct _PROPSHEETPAGEW* page);
typedef int(CALLBACK* PFNPROPSHEETCALLBACK)(HWND sheet, UINT message, LPARAM lParam);

#define PSP_DEFAULT 0x00000000
#define PSP_DLGINDIRECT 0x00000001
#define PSP_USEHICON 0x00000002
#define PSP_USEICONID 0x00000004
#define PSP_USETITLE 0x00000008
#define PSP_RTLREADING 0x00000010
#define PSP_HASHELP 0x00000020
#define PSP_USEREFPARENT 0x00000040
#define PSP_USECALLBACK 0x00000080
#define PSP_PREMATURE 0x00000400

#define PSPCB_ADDREF 0
#define PSPCB_RELEASE 1
#define PSPCB_CREATE 2

typedef struct _PROPSHEETPAGEW
{
    DWORD dwSize;
    DWORD dwFlags;
    HINSTANCE hInstance;
    union
    {
        LPCWSTR pszTemplate;
        LPCDLGTEMPLATEW pResource;
    };
    union
    {
        HICON hIcon;
        LPCWSTR pszIcon;
    };
    LPCWSTR pszTitle;
    DLGPROC pfnDlgProc;
    LPARAM lParam;
    LPFNPSPCALLBACKW pfnCallback;
    UINT* pcRefParent;
    LPCWSTR pszHeaderTitle;
    LPCWSTR pszHeaderSubTitle;
    HANDLE hActCtx;
    union
    {
        HBITMAP hbmHeader;
        LPCWSTR pszbmHeader;
    };
} PROPSHEETPAGEW, *LPPROPSHEETPAGEW;
typedef const PROPSHEETPAGEW* LPCPROPSHEETPAGEW;
typedef PROPSHEETPAGEW PROPSHEETPAGE;
typedef LPPROPSHEETPAGEW LPPROPSHEETPAGE;
typedef LPCPROPSHEETPAGEW LPCPROPSHEETPAGE;

#define PSH_DEFAULT 0x00000000
#define PSH_USEHICON 0x00000002
#define PSH_USEICONID 0x00000004
#define PSH_PROPSHEETPAGE 0x00000008
#define PSH_NOAPPLYNOW 0x00000080
#define PSH_HASHELP 0x00000200
#define PSH_MODELESS 0x00000400
#define PSH_RTLREADING 0x00000800
#define PSH_NOCONTEXTHELP 0x02000000

typedef struct _PROPSHEETHEADERW
{
    DWORD dwSize;
    DWORD dwFlags;
    HWND hwndParent;
    HINSTANCE hInstance;
    union
    {
        HICON hIcon;
        LPCWSTR pszIcon;
    };
    LPCWSTR pszCaption;
    UINT nPages;
    union
    {
        UINT nStartPage;
        LPCWSTR pStartPage;
    };
    union
    {
        LPCPROPSHEETPAGEW ppsp;
        HPROPSHEETPAGE* phpage;
    };
    PFNPROPSHEETCALLBACK pfnCallback;
    union
    {
        HBITMAP hbmWatermark;
        LPCWSTR pszbmWatermark;
    };
    HPALETTE hplWatermark;
    union
    {
        HBITMAP hbmHeader;
        LPCWSTR pszbmHeader;
    };
} PROPSHEETHEADERW, *LPPROPSHEETHEADERW;
typedef const PROPSHEETHEADERW* LPCPROPSHEETHEADERW;
typedef PROPSHEETHEADERW PROPSHEETHEADER;
typedef LPPROPSHEETHEADERW LPPROPSHEETHEADER;
typedef LPCPROPSHEETHEADERW LPCPROPSHEETHEADER;

typedef struct _PSHNOTIFY
{
    NMHDR hdr;
    LPARAM lParam;
} PSHNOTIFY, *LPPSHNOTIFY;

#define PSN_FIRST (0U - 200U)
#define PSN_LAST (0U - 299U)
#define PSN_SETACTIVE (PSN_FIRST - 0)
#define PSN_KILLACTIVE (PSN_FIRST - 1)
#define PSN_APPLY (PSN_FIRST - 2)
#define PSN_RESET (PSN_FIRST - 3)
#define PSN_HELP (PSN_FIRST - 5)
#define PSN_QUERYCANCEL (PSN_FIRST - 9)

#define PSNRET_NOERROR 0
#define PSNRET_INVALID 1
#define PSNRET_INVALID_NOCHANGEPAGE 2

#define PSM_SETCURSEL (WM_USER + 101)
#define PSM_CHANGED (WM_USER + 104)
#define PSM_UNCHANGED (WM_USER + 109)
#define PSM_APPLY (WM_USER + 110)
#define PSM_PRESSBUTTON (WM_USER + 113)
#define PSM_GETTABCONTROL (WM_USER + 116)
#define PSM_ISDIALOGMESSAGE (WM_USER + 117)
#define PSM_GETCURRENTPAGEHWND (WM_USER + 118)
#define PSM_HWNDTOINDEX (WM_USER + 129)
#define PSM_INDEXTOHWND (WM_USER + 130)
#define PSM_PAGETOINDEX (WM_USER + 131)
#define PSM_INDEXTOPAGE (WM_USER + 132)
#define PSM_INDEXTOID (WM_USER + 134)
#define PSM_GETRESULT (WM_USER + 135)

#define PSBTN_BACK 0
#define PSBTN_NEXT 1
#define PSBTN_FINISH 2
#define PSBTN_OK 3
#define PSBTN_APPLYNOW 4
#define PSBTN_CANCEL 5
#define PSBTN_HELP 6
#define PSBTN_MAX 6

HPROPSHEETPAGE WINAPI CreatePropertySheetPageW(LPCPROPSHEETPAGEW page);
BOOL WINAPI DestroyPropertySheetPage(HPROPSHEETPAGE page);

// Modeless: the sheet's window, or -1 if it could not be made. Modal: a positive number if changes were
// applied, 0 after Cancel, -1 after a failure.
INT_PTR WINAPI PropertySheetW(LPCPROPSHEETHEADERW header);
#define PropertySheet PropertySheetW
#define CreatePropertySheetPage CreatePropertySheetPageW

#define PropSheet_SetCurSel(sheet, page, index) \
    SendMessageW(sheet, PSM_SETCURSEL, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(page))
#define PropSheet_Changed(sheet, page) SendMessageW(sheet, PSM_CHANGED, reinterpret_cast<WPARAM>(page), 0)
#define PropSheet_UnChanged(sheet, page) SendMessageW(sheet, PSM_UNCHANGED, reinterpret_cast<WPARAM>(page), 0)
#define PropSheet_Apply(sheet) SendMessageW(sheet, PSM_APPLY, 0, 0)
#define PropSheet_PressButton(sheet, button) \
    PostMessageW(sheet, PSM_PRESSBUTTON, static_cast<WPARAM>(button), 0)
#define PropSheet_GetTabControl(sheet) reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETTABCONTROL, 0, 0))
#define PropSheet_IsDialogMessage(sheet, message) \
    static_cast<BOOL>(SendMessageW(sheet, PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(message)))
#define PropSheet_GetCurrentPageHwnd(sheet) \
    reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0))
#define PropSheet_GetResult(sheet) SendMessageW(sheet, PSM_GETRESULT, 0, 0)

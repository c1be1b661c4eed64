// The least that a property sheet can be: one page with nothing on it. What the editor's start is measured
// by. With FIRST_PAGE the page is the editor's first one, with a tooltip control: what of the start is the
// system's work on those windows, whoever asks for them.
#include "resource.h"

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

namespace
{
// A dialog template is followed by its menu, class and title, here none of each.
struct EmptyTemplate
{
    DLGTEMPLATE dialog;
    WORD menu;
    WORD windowClass;
    wchar_t title[6];
};
}  // namespace

INT_PTR CALLBACK PageProc([[maybe_unused]] HWND page, [[maybe_unused]] UINT message, WPARAM, LPARAM)
{
#ifdef FIRST_PAGE
    if (message == WM_INITDIALOG)
    {
        CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, page, nullptr, nullptr, nullptr);
    }
#endif
    return FALSE;
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int)
{
    PROPSHEETPAGEW pages = {};
    pages.dwSize = sizeof(pages);
    pages.hInstance = instance;
    pages.pfnDlgProc = PageProc;
#ifdef FIRST_PAGE
    pages.pszTemplate = MAKEINTRESOURCEW(IDD_GENERAL_SETTINGS);
#else
    static const EmptyTemplate page = {
        {WS_CHILD | WS_CAPTION | WS_DISABLED, 0, 0, 0, 0, 316, 184}, 0, 0, L"Empty"};
    pages.dwFlags = PSP_DLGINDIRECT;
    pages.pResource = &page.dialog;
#endif
    PROPSHEETHEADERW sheet = {};
    sheet.dwSize = sizeof(sheet);
    sheet.dwFlags = PSH_PROPSHEETPAGE;
    sheet.hInstance = instance;
    sheet.pszCaption = L"Bare Sheet";
    sheet.nPages = 1;
    sheet.ppsp = &pages;
    PropertySheetW(&sheet);
    return 0;
}

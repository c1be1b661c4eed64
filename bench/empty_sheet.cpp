// The least that a property sheet can be: one page with nothing on it. What the editor's start is measured
// by.
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

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int)
{
    static const EmptyTemplate page = {
        {WS_CHILD | WS_CAPTION | WS_DISABLED, 0, 0, 0, 0, 316, 184}, 0, 0, L"Empty"};
    PROPSHEETPAGEW pages = {};
    pages.dwSize = sizeof(pages);
    pages.dwFlags = PSP_DLGINDIRECT;
    pages.hInstance = instance;
    pages.pResource = &page.dialog;
    pages.pfnDlgProc = [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; };
    PROPSHEETHEADERW sheet = {};
    sheet.dwSize = sizeof(sheet);
    sheet.dwFlags = PSH_PROPSHEETPAGE;
    sheet.hInstance = instance;
    sheet.pszCaption = L"Empty Sheet";
    sheet.nPages = 1;
    sheet.ppsp = &pages;
    PropertySheetW(&sheet);
    return 0;
}

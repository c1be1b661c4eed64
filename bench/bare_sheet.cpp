// A property sheet without a program behind it, which the editor is measured by: the system's work for the
// same windows. Argument: "empty" for a page without controls, "first" for the editor's first page alone,
// with a tooltip control as in the editor, "all" for all of the editor's pages.
#include "resource.h"

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <string_view>
#include <vector>

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

INT_PTR CALLBACK PageProc(HWND page, UINT message, WPARAM, LPARAM lParam)
{
    if (message == WM_INITDIALOG && reinterpret_cast<const PROPSHEETPAGEW*>(lParam)->lParam != 0)
    {
        CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, page, nullptr, nullptr, nullptr);
    }
    return FALSE;
}
PROPSHEETPAGEW PageOf(LPCWSTR dialogTemplate)
{
    PROPSHEETPAGEW page = {};
    page.dwSize = sizeof(page);
    page.hInstance = GetModuleHandleW(nullptr);
    page.pszTemplate = dialogTemplate;
    page.pfnDlgProc = PageProc;
    return page;
}

// Adds a page for each template of a child window; the others are dialogs.
BOOL CALLBACK AddIfPage(HMODULE, LPCWSTR, LPWSTR name, LONG_PTR list)
{
    auto& pages = *reinterpret_cast<std::vector<PROPSHEETPAGEW>*>(list);
    const HRSRC found = FindResourceW(nullptr, name, RT_DIALOG);
    // Behind the version, the signature, the help id and the extended style.
    const DWORD style = static_cast<const DWORD*>(LockResource(LoadResource(nullptr, found)))[3];
    if ((style & WS_CHILD) != 0 && name != MAKEINTRESOURCEW(IDD_GENERAL_SETTINGS))
    {
        pages.push_back(PageOf(name));
    }
    return TRUE;
}
}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR arguments, int)
{
    const std::string_view which = arguments;
    std::vector<PROPSHEETPAGEW> pages = {PageOf(MAKEINTRESOURCEW(IDD_GENERAL_SETTINGS))};
    pages[0].lParam = which == "first" ? 1 : 0;
    static const EmptyTemplate empty = {
        {WS_CHILD | WS_CAPTION | WS_DISABLED, 0, 0, 0, 0, 316, 184}, 0, 0, L"Empty"};
    if (which == "empty")
    {
        pages[0].dwFlags = PSP_DLGINDIRECT;
        pages[0].pResource = &empty.dialog;
    }
    else if (which == "all")
    {
        EnumResourceNamesW(nullptr, RT_DIALOG, AddIfPage, reinterpret_cast<LONG_PTR>(&pages));
    }
    PROPSHEETHEADERW sheet = {};
    sheet.dwSize = sizeof(sheet);
    sheet.dwFlags = PSH_PROPSHEETPAGE;
    sheet.hInstance = instance;
    sheet.pszCaption = L"Quorvex Bench Settings";
    sheet.nPages = static_cast<UINT>(pages.size());
    sheet.ppsp = pages.data();
    PropertySheetW(&sheet);
    return 0;
}

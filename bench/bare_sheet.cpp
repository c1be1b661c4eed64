// A property sheet with the editor's dialog templates and no code behind them: the time that the system
// itself needs for the editor's windows.
#include "resource.h"

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <vector>

// The first page creates a tooltip control, as in the editor.
static INT_PTR CALLBACK PageProc(HWND page, UINT message, WPARAM, LPARAM lParam)
{
    if (message == WM_INITDIALOG && reinterpret_cast<const PROPSHEETPAGEW*>(lParam)->pszTemplate ==
                                        MAKEINTRESOURCEW(IDD_GENERAL_SETTINGS))
    {
        CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, page, nullptr, nullptr, nullptr);
    }
    return FALSE;
}

static PROPSHEETPAGEW PageOf(LPCWSTR dialogTemplate)
{
    PROPSHEETPAGEW page = {};
    page.dwSize = sizeof(page);
    page.hInstance = GetModuleHandleW(nullptr);
    page.pszTemplate = dialogTemplate;
    page.pfnDlgProc = PageProc;
    return page;
}

// Adds a page for each template of a child window. The other templates are dialogs.
static BOOL CALLBACK AddIfPage(HMODULE, LPCWSTR, LPWSTR name, LONG_PTR list)
{
    auto& pages = *reinterpret_cast<std::vector<PROPSHEETPAGEW>*>(list);
    const HRSRC found = FindResourceW(nullptr, name, RT_DIALOG);
    // The style follows the version, the signature, the help id and the extended style.
    const DWORD style = static_cast<const DWORD*>(LockResource(LoadResource(nullptr, found)))[3];
    if ((style & WS_CHILD) != 0 && name != MAKEINTRESOURCEW(IDD_GENERAL_SETTINGS))
    {
        pages.push_back(PageOf(name));
    }
    return TRUE;
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int)
{
    std::vector<PROPSHEETPAGEW> pages = {PageOf(MAKEINTRESOURCEW(IDD_GENERAL_SETTINGS))};
    EnumResourceNamesW(nullptr, RT_DIALOG, AddIfPage, reinterpret_cast<LONG_PTR>(&pages));
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

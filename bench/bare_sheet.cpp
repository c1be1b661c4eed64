// A property sheet with no program behind it, which the editor is measured by. The argument counts its pages:
// that many of the editor's own, or one with nothing on it for none. A single one has a tooltip control, as
// the editor's first page has: what of the start is the system's work on those windows, whoever asks for
// them.
#include "resource.h"

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace
{
// In the order of the editor's tabs.
constexpr int Templates[] = {IDD_GENERAL_SETTINGS, IDD_DRIVERS_AND_FIRMWARE, IDD_CHAPTER9,
                             IDD_WAIVERS,          IDD_XHCI_SETTINGS,        IDD_MAUSB_SETTINGS,
                             IDD_MAUSB_MEDIA,      IDD_MAUSB_PROTOCOL,       IDD_MAUSB_HUT_PARAMS};

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
}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR arguments, int)
{
    const int count = std::clamp(std::atoi(arguments), 0, static_cast<int>(std::size(Templates)));
    PROPSHEETPAGEW pages[std::size(Templates)] = {};
    for (size_t index = 0; index < std::size(Templates); ++index)
    {
        pages[index].dwSize = sizeof(pages[index]);
        pages[index].hInstance = instance;
        pages[index].pszTemplate = MAKEINTRESOURCEW(Templates[index]);
        pages[index].pfnDlgProc = PageProc;
        pages[index].lParam = count == 1;
    }
    static const EmptyTemplate empty = {
        {WS_CHILD | WS_CAPTION | WS_DISABLED, 0, 0, 0, 0, 316, 184}, 0, 0, L"Empty"};
    if (count == 0)
    {
        pages[0].dwFlags = PSP_DLGINDIRECT;
        pages[0].pResource = &empty.dialog;
    }
    PROPSHEETHEADERW sheet = {};
    sheet.dwSize = sizeof(sheet);
    sheet.dwFlags = PSH_PROPSHEETPAGE;
    sheet.hInstance = instance;
    sheet.pszCaption = L"Quorvex Bench Settings";
    sheet.nPages = static_cast<UINT>(std::max(count, 1));
    sheet.ppsp = pages;
    PropertySheetW(&sheet);
    return 0;
}

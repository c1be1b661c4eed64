// The functions of the common controls that the program calls. The library is loaded at the first call and
// not imported, because it loads further libraries as it comes, and the search for those must be restricted
// by then.
#include <tchar.h>
#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

namespace
{
// The bare name lets the system take the version that the manifest names.
template <class Function>
Function* CommonControlsFunction(Function&, const char* name)
{
    static const HMODULE library = LoadLibraryExW(_T("comctl32.dll"), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}
}  // namespace

BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* classes)
{
    return CommonControlsFunction(InitCommonControlsEx, "InitCommonControlsEx")(classes);
}

INT_PTR WINAPI PropertySheetW(LPCPROPSHEETHEADERW header)
{
    return CommonControlsFunction(PropertySheetW, "PropertySheetW")(header);
}

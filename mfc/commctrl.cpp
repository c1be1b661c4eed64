// The functions of comctl32 that the program calls. The DLL is loaded at the first call and not imported: it
// loads further DLLs, and by then the DLL search must be restricted.
#include <tchar.h>
#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

// Without a path, the system loads the version that the manifest selects.
template <class Function>
static Function* CommonControlsFunction(Function&, const char* name)
{
    static const HMODULE library = LoadLibraryExW(_T("comctl32.dll"), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* classes)
{
    return CommonControlsFunction(InitCommonControlsEx, "InitCommonControlsEx")(classes);
}

INT_PTR WINAPI PropertySheetW(LPCPROPSHEETHEADERW header)
{
    return CommonControlsFunction(PropertySheetW, "PropertySheetW")(header);
}

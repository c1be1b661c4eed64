#include "afxwin.h"

// Restricts the search for DLLs to System32, so that a DLL in the program's folder is never loaded by name.
// It must run before constructors of default priority, because some load DLLs: that of the stack protector
// does.
[[gnu::constructor(101)]] static void RestrictLibrarySearch()
{
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    AfxGetApp()->InitInstance();
    return 0;
}

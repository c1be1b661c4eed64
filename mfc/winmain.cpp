#include "afxwin.h"

namespace
{
// Other constructors load libraries by name: the one of the stack protector does. So this one comes before
// all of the default priority. A file of that name that lies beside the program is not taken from then on.
[[gnu::constructor(101)]] void RestrictLibrarySearch()
{
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
}
}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    CWinApp* app = AfxGetApp();
    app->InitInstance();
    return app->ExitInstance();
}

#include "afxwin.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    // What the system's own libraries load by name from here on comes from its folder, not from the
    // program's, where anybody may have put a file of that name.
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    CWinApp* app = AfxGetApp();
    app->InitInstance();
    return app->ExitInstance();
}

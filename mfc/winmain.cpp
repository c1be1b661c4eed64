#include "afxwin.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    CWinApp* app = AfxGetApp();
    return app->InitInstance() ? app->Run() : app->ExitInstance();
}

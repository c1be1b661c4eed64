#include "afxshellmanager.h"

#include <windows.h>

#include <objbase.h>

CShellManager::CShellManager()
    : m_bInitialised(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE)))
{
}

CShellManager::~CShellManager()
{
    if (m_bInitialised)
    {
        CoUninitialize();
    }
}

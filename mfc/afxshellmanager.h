#pragma once

#include <windows.h>

#include <objbase.h>

// Holds COM for the thread, which the file dialogs need, as long as it lives.
class CShellManager
{
public:
    CShellManager()
        : m_bInitialised(
              SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE)))
    {
    }
    ~CShellManager()
    {
        if (m_bInitialised)
        {
            CoUninitialize();
        }
    }
    CShellManager(const CShellManager&) = delete;
    CShellManager& operator=(const CShellManager&) = delete;

private:
    bool m_bInitialised;
};

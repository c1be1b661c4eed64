#pragma once

#include <windows.h>

#include <objbase.h>

// Initializes COM for the thread until it is destroyed. The file dialog needs COM.
class CShellManager
{
public:
    CShellManager() = default;
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
    bool m_bInitialised =
        SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE));
};

#pragma once

// Holds COM for the thread, which the file dialogs need, as long as it lives.
class CShellManager
{
public:
    CShellManager();
    ~CShellManager();
    CShellManager(const CShellManager&) = delete;
    CShellManager& operator=(const CShellManager&) = delete;

private:
    bool m_bInitialised;
};

#pragma once

#include "framework/RegistryAccess.h"

#include <afxwin.h>

// The application object. InitInstance does all the work and returns FALSE, and the process ends.
class CQBSettingsApp : public CWinApp
{
public:
    CQBSettingsApp();

    BOOL InitInstance() override;

protected:
    DECLARE_MESSAGE_MAP()

private:
    void ActivateFirstInstance() const;
    void RunSheet();

    WideString m_strAppTitle;  // the sheet's caption; a second instance finds the first by it
};

// The mutex marks a running instance by its existence; nothing waits on it. Null if it could not be created.
extern HANDLE g_hInstanceMutex;
// GetLastError directly after CreateMutexW: ERROR_ALREADY_EXISTS in a second instance.
extern DWORD g_dwInstanceMutexError;

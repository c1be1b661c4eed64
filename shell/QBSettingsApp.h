#pragma once

#include "framework/RegistryAccess.h"

#include <afxwin.h>

// The application: all of its work is done in InitInstance, which gives false, so that the process then ends.
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

    WideString m_strAppTitle;  // the sheet's caption, by which a second instance finds the first
};

// Marks a running instance by its existence; never waited on. Null if it could not be made.
extern HANDLE g_hInstanceMutex;
// GetLastError right after the mutex was made: ERROR_ALREADY_EXISTS in a second instance.
extern DWORD g_dwInstanceMutexError;

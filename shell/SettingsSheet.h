#pragma once

#include "framework/SettingsPage.h"

// The sheet: the tabs of the tools that are installed, and a title bar to minimise and maximise it by.
class CSettingsSheet : public CPropertySheet
{
    DECLARE_DYNAMIC(CSettingsSheet)

public:
    explicit CSettingsSheet(LPCTSTR caption);

    // Appends the page if some installed tool needs it. The page stays the caller's.
    void Join(CSettingsPage& page);

protected:
    afx_msg BOOL OnNcCreate(LPCREATESTRUCTW lpCreateStruct);

    DECLARE_MESSAGE_MAP()
};

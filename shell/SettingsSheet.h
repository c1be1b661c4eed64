#pragma once

#include "framework/SettingsPage.h"

// The sheet: the tabs of the tools that are installed, and a title bar to minimise and maximise it by.
class CSettingsSheet : public CPropertySheet
{
    DECLARE_DYNAMIC(CSettingsSheet)

public:
    explicit CSettingsSheet(LPCTSTR caption);

    // Appends the page if an installed tool needs it. The sheet keeps a pointer to it; the caller owns it.
    void Join(CSettingsPage& page);

protected:
    afx_msg BOOL OnNcCreate(LPCREATESTRUCTW lpCreateStruct);

    DECLARE_MESSAGE_MAP()
};

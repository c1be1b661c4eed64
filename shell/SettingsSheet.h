#pragma once

#include "framework/SettingsPage.h"

// The property sheet. It has a page for each concern of the installed tools, and minimise and maximise boxes.
class CSettingsSheet : public CPropertySheet
{
    DECLARE_DYNAMIC(CSettingsSheet)

public:
    explicit CSettingsSheet(LPCTSTR caption);

    // Adds the page if an installed tool needs it. The sheet keeps a pointer to the page, which must outlive
    // DoModal; the caller owns the page.
    void Join(CSettingsPage& page);

protected:
    afx_msg BOOL OnNcCreate(LPCREATESTRUCTW lpCreateStruct);

    DECLARE_MESSAGE_MAP()
};

// The Chapter 9 page: one switch for each of two tools, stored in that tool's own key.
#pragma once

#include "framework/SettingsPage.h"

class CChapter9Dlg : public CSettingsPage
{
    DECLARE_DYNAMIC(CChapter9Dlg)

public:
    CChapter9Dlg();

    DECLARE_MESSAGE_MAP()

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    void InitToolTips() override;
    void SaveSettings() override;
    void LoadSettings() override;
    void UpdateControlStates() override;

    afx_msg void OnAlderSkipBos() { CheckModified(SkipBOSDescriptorLegacyDevicesAlderQB); }
    afx_msg void OnBirchSkipBos() { CheckModified(SkipBOSDescriptorLegacyDevicesBirchQB); }

private:
    int SkipBOSDescriptorLegacyDevicesAlderQB = 0;
    int SkipBOSDescriptorLegacyDevicesBirchQB = 0;
};

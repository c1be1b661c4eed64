// The MAUSB HUT Params page: retry counts and one capability of the Host Under Test, stored in
// SOFTWARE\Halvane\KauriQB.
#pragma once

#include "framework/SettingsPage.h"
#include "mausb/ToolKey.h"

class CMAUSBHubUnderTestParamsDlg : public CSettingsPage
{
    DECLARE_DYNAMIC(CMAUSBHubUnderTestParamsDlg)

public:
    CMAUSBHubUnderTestParamsDlg();

    DECLARE_MESSAGE_MAP()

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    void InitToolTips() override;
    void SaveSettings() override { WriteAll(ToolKey(), Settings); }
    void LoadSettings() override { ReadAll(ToolKey(), Settings); }

    afx_msg void OnRetries(UINT id) { CheckModifiedIn(Settings, id); }
    afx_msg void OnSendsGetPortBWReq() { CheckModified(m_nSendsGetPortBWReq); }

private:
    static const NumberSetting<CMAUSBHubUnderTestParamsDlg> Settings[6];

    int m_nBulkTransferRetriesHUT = 5;
    int m_nControlTransferRetriesHUT = 5;
    int m_nInterruptTransferRetriesHUT = 3;
    int m_nManagementRetriesHUT = 4;
    int m_nTransferSetupRetriesHUT = 4;
    int m_nSendsGetPortBWReq = 0;
};

// The MAUSB Protocol Settings page: constants of the MAUSB 1.0a specification, stored in
// SOFTWARE\Halvane\KauriQB.
#pragma once

#include "framework/SettingsPage.h"
#include "mausb/ToolKey.h"

class CMAUSBProtocolConstantsDlg : public CSettingsPage
{
    DECLARE_DYNAMIC(CMAUSBProtocolConstantsDlg)

public:
    CMAUSBProtocolConstantsDlg();

    DECLARE_MESSAGE_MAP()

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    void InitToolTips() override;
    void SaveSettings() override { WriteAll(ToolKey(), Settings); }
    void LoadSettings() override { ReadAll(ToolKey(), Settings); }

    afx_msg void OnField(UINT id) { CheckModifiedIn(Settings, id); }
    afx_msg void OnSetToDefault() { ResetGroup(Group::ResponseTimes); }
    afx_msg void OnSetToSuggested() { ResetGroup(Group::Delays); }
    afx_msg void OnSetToMinimum() { ResetGroup(Group::Retries); }

private:
    enum class Group
    {
        ResponseTimes,
        Delays,
        Retries
    };
    struct Setting : NumberSetting<CMAUSBProtocolConstantsDlg>
    {
        int value;  // the default; the group's button restores it
        Group group;
    };
    static const Setting Settings[16];

    void ResetGroup(Group group);
    // Sets a member and its edit. Returns whether the member changed.
    bool SetFieldValue(int& member, int value, int id);
    void AddGroupToolTips(Group group, LPCTSTR text, int buttonId, LPCTSTR buttonText);

    // All times are in milliseconds.
    int m_nManagementResponseTime;
    int m_nTransferResponseTime;
    int m_nDataChannelDelayTCP;
    int m_nManagementChannelDelayTCP;
    int m_nMaxIsochLinkDelayTCP;
    int m_nDataChannelDelayUDP;
    int m_nManagementChannelDelayUDP;
    int m_nMaxIsochLinkDelayUDP;
    int m_nDataChannelDelaySNAP;
    int m_nManagementChannelDelaySNAP;
    int m_nMaxIsochLinkDelaySNAP;
    int m_nBulkTransferRetries;
    int m_nControlTransferRetries;
    int m_nInterruptTransferRetries;
    int m_nManagementRetries;
    int m_nTransferSetupRetries;
};

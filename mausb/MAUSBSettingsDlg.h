// MAUSB Settings: version, payload alignment, identity and sleep of the MAUSB tool, in
// SOFTWARE\Halvane\KauriQB.
#pragma once

#include "framework/SettingsPage.h"

#include <rpc.h>

class CMAUSBSettingsDlg : public CSettingsPage
{
    DECLARE_DYNAMIC(CMAUSBSettingsDlg)

public:
    CMAUSBSettingsDlg();

    DECLARE_MESSAGE_MAP()

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    void InitToolTips() override;
    void SaveSettings() override;
    // Also stores a new Container ID at once if there is none: the tool needs one, applied or not.
    void LoadSettings() override;
    void UpdateControlStates() override;

    afx_msg void OnProtocolVersion() { CheckModified(m_nProtocolVersionIndex); }
    afx_msg void OnMaxUSBTransferSize() { CheckModified(m_nMaxUSBTransferSize); }
    afx_msg void OnAlignmentByte() { SetIsochPayloadAlignment(AlignedToByte); }
    afx_msg void OnAlignmentDword() { SetIsochPayloadAlignment(AlignedToDword); }
    afx_msg void OnNewId();
    afx_msg void OnRefuseSleepRequests() { CheckModified(m_nRefuseSleepRequests); }
    afx_msg void OnLinkSleepCapability() { CheckModified(m_nLinkSleepCapability); }
    afx_msg void OnUseDefaultMaxUSBTransferSize();

private:
    // As they are stored.
    static constexpr int AlignedToByte = 1;
    static constexpr int AlignedToDword = 4;

    void LoadIsochPayloadAlignment();
    void SetIsochPayloadAlignment(int alignment);
    // To the button that is checked.
    void MoveAlignmentTabStop();
    // False, with the ID left as it is, if the system had no address to make one from.
    bool GenerateContainerId();
    void ShowContainerId();
    void EnableMaxUSBTransferSize();

    int m_nIsochPayloadAlignment = AlignedToByte;
    UUID m_RootHubUUID;  // the Container ID; nil for none yet
    CEdit m_edContainerId;
    int m_nRefuseSleepRequests = 0;
    CButton m_btnRefuseSleepRequests;
    CButton m_btnLinkSleepCapability;
    int m_nLinkSleepCapability = 0;
    int m_nProtocolVersionIndex = 0;
    CString m_strProtocolVersion;  // as loaded; the list has what is saved
    CComboBox m_cbProtocolVersion;
    // The transfer size is for the tool alone so far: its controls are never shown.
    CEdit m_edMaxUSBTransferSize;
    int m_nMaxUSBTransferSize = 0;
    int m_nUseDefaultMaxUSBTransferSize = 1;
    CButton m_btnUseDefaultMaxUSBTransferSize;
};

// The MAUSB Settings page: protocol version, payload alignment, Container ID and sleep settings of the MAUSB
// tool, stored in SOFTWARE\Halvane\KauriQB.
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
    // Also generates and stores a Container ID if none is stored, because the tool needs one even if the user
    // cancels.
    void LoadSettings() override;
    void UpdateControlStates() override;

    afx_msg void OnProtocolVersion() { CheckModified(m_nProtocolVersionIndex); }
    afx_msg void OnMaxUSBTransferSize() { CheckModified(m_nMaxUSBTransferSize); }
    afx_msg void OnAlignment(UINT id);
    afx_msg void OnNewId();
    afx_msg void OnRefuseSleepRequests() { CheckModified(m_nRefuseSleepRequests); }
    afx_msg void OnLinkSleepCapability() { CheckModified(m_nLinkSleepCapability); }
    afx_msg void OnUseDefaultMaxUSBTransferSize();

private:
    // The stored numbers.
    static constexpr int AlignedToByte = 1;
    static constexpr int AlignedToDword = 4;

    void LoadIsochPayloadAlignment();
    // Makes the checked radio button the group's tab stop.
    void MoveAlignmentTabStop();
    // Returns false, without changing the ID, if UuidCreate has no network address.
    bool GenerateContainerId();
    void ShowContainerId();

    int m_nIsochPayloadAlignment = AlignedToByte;
    UUID m_RootHubUUID;  // the Container ID; nil if there is none yet
    CEdit m_edContainerId;
    int m_nRefuseSleepRequests = 0;
    CButton m_btnRefuseSleepRequests;
    CButton m_btnLinkSleepCapability;
    int m_nLinkSleepCapability = 0;
    int m_nProtocolVersionIndex = 0;
    CString m_strProtocolVersion;  // as loaded; SaveSettings uses the list's text instead
    CComboBox m_cbProtocolVersion;
    // The controls of the transfer size are never shown, so its values are only loaded and stored.
    CEdit m_edMaxUSBTransferSize;
    int m_nMaxUSBTransferSize = 0;
    int m_nUseDefaultMaxUSBTransferSize = 1;
    CButton m_btnUseDefaultMaxUSBTransferSize;
};

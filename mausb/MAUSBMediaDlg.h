// The MAUSB Media Settings page: how the MAUSB tool connects to its host, stored in SOFTWARE\Halvane\KauriQB.
#pragma once

#include "framework/SettingsPage.h"
#include "framework/SuperEdit.h"
#include "mausb/AdvancedTCPSettingsDlg.h"
#include "mausb/PortTable.h"

class CMAUSBMediaDlg : public CSettingsPage
{
    DECLARE_DYNAMIC(CMAUSBMediaDlg)

public:
    CMAUSBMediaDlg();

    DECLARE_MESSAGE_MAP()

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    void InitToolTips() override;
    void SaveSettings() override;
    void LoadSettings() override;
    void UpdateControlStates() override;

    afx_msg void OnNetworkLevelLog();
    afx_msg void OnNetworkType(UINT id);
    afx_msg void OnEdit(UINT id);
    afx_msg void OnAdvancedTCP();
    afx_msg void OnPortsClient() { EditPorts(_T("Client Port Numbers"), m_portsClient); }
    afx_msg void OnPortsServer() { EditPorts(_T("Server Port Numbers"), m_portsServer); }

private:
    static constexpr int NetworkTCP = 0;
    static constexpr int NetworkUDP = 1;

    // Calls visit(value name, member, control) for all values of this page except NetworkType, in the order
    // in which they are stored.
    template <class Visit>
    void ForEachSetting(Visit visit);
    // Calls visit(value name, member) for the values that the Advanced TCP Settings dialog edits.
    template <class Visit>
    void ForEachAdvancedSetting(Visit visit);
    void LoadAdvancedTCPSettings();
    void SaveAdvancedTCPSettings();
    void EnableNetworkControls(int networkType);
    void EnableMaxBytesToLog();
    void EditPorts(LPCTSTR title, PortTable& ports);

    CButton m_btnNetworkLevelLog;
    int m_nNetworkLevelLog = 0;
    CEdit m_edDefaultIPAddressTCPClient;
    CString m_strDefaultIPAddressTCPClient;
    int m_nNetworkType = NetworkTCP;
    CStatic m_grpTCPIPOptions;
    CStatic m_stTCPClientIPAddress;
    CStatic m_grpSNAPOptions;
    CEdit m_edMACAddr;
    CString m_strMACAddr;
    int m_nMaxBytesToLog = 100;
    CString m_strDefaultIPAddressUDP;
    int m_nDefaultPortNumberUDP = 9001;
    CEdit m_edDefaultIPAddressUDP;
    CEdit m_edDefaultPortNumberUDP;
    CStatic m_grpUDPIPOptions;
    CStatic m_stUDPIPAddress;
    CStatic m_stUDPPortNumber;
    CStatic m_stMACAddr;
    CSuperEdit m_edSnapIdOUI;
    CSuperEdit m_edSnapIdPID;
    CStatic m_stSnapId;
    CStatic m_stSnapIdOUI;
    CStatic m_stSnapIdPID;
    UINT m_nSnapIdOUI = 0x506F9A;
    UINT m_nSnapIdPID = 0x1500;
    // The loaded numbers. While UpdateControlStates fills the two edits, exchanges with the empty edits set
    // the two members above to 0.
    int m_nLoadedSnapIdOUI = 0;
    int m_nLoadedSnapIdPID = 0;
    CStatic m_stMaxPacketSizeTCP;
    CEdit m_edMaxPacketSizeTCP;
    int m_nMaxPacketSizeTCP = 65535;
    CStatic m_stMaxPacketSizeUDP;
    CEdit m_edMaxPacketSizeUDP;
    int m_nMaxPacketSizeUDP = 65507;
    CEdit m_edMaxPacketSizeSNAP;
    int m_nMaxPacketSizeSNAP = 1492;
    CStatic m_stMaxPacketSizeSNAP;
    CEdit m_edMaxBytesToLog;
    CStatic m_stMaxBytesToLog;
    CButton m_btnAdvancedTCP;
    AdvancedTCPSettings m_advancedTCP;
    PortTable m_portsClient;
    PortTable m_portsServer;
    // For isochronous transfers over UDP, which the tool does not support yet. The controls are never shown
    // and the numbers are never stored.
    CButton m_btnUseUDPForIsoch;
    CEdit m_edIsoch;
    CEdit m_edMaxIsoch;
    CStatic m_stMaxIsoch;
    CStatic m_stIsoch;
    int m_nUseUDPForIsoch = 0;
    int m_nIsoch = 9001;
    int m_nMaxIsoch = 65507;
};

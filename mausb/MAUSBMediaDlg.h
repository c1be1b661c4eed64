// MAUSB Media Settings: how the MAUSB tool meets its host over a network, in SOFTWARE\Halvane\KauriQB.
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
    ~CMAUSBMediaDlg() override;

    DECLARE_MESSAGE_MAP()

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    void InitToolTips() override;
    void SaveSettings() override;
    void LoadSettings() override;
    void UpdateControlStates() override;

    afx_msg void OnNetworkLevelLog();
    afx_msg void OnNetworkType(UINT id);
    afx_msg void OnDefaultIPAddressTCPClient();
    afx_msg void OnDefaultIPAddressUDP();
    afx_msg void OnMACAddr();
    afx_msg void OnMaxBytesToLog();
    afx_msg void OnDefaultPortNumberUDP();
    afx_msg void OnSnapIdOUI();
    afx_msg void OnSnapIdPID();
    afx_msg void OnMaxPacketSizeTCP();
    afx_msg void OnMaxPacketSizeUDP();
    afx_msg void OnMaxPacketSizeSNAP();
    afx_msg void OnAdvancedTCP();
    afx_msg void OnPortsClient();
    afx_msg void OnPortsServer();

private:
    static constexpr int NetworkTCP = 0;
    static constexpr int NetworkUDP = 1;

    void BindControls(CDataExchange* pDX);
    // Calls visit(value name, member) for the page's own values but NetworkType, in the order in which they
    // are stored.
    template <class Visit>
    void ForEachSetting(Visit visit);
    // The same for the values of the Advanced TCP Settings dialog.
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
    // As loaded: the edits start empty, and the exchanges before they are filled take the two above to 0.
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
    // For isochronous transfers over UDP, which the tool doesn't offer yet: never shown and never stored.
    CButton m_btnUseUDPForIsoch;
    CEdit m_edIsoch;
    CEdit m_edMaxIsoch;
    CStatic m_stMaxIsoch;
    CStatic m_stIsoch;
    int m_nUseUDPForIsoch = 0;
    int m_nIsoch = 9001;
    int m_nMaxIsoch = 65507;
};

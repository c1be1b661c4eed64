// The values of the MAUSB Media Settings page.
#include "mausb/MAUSBMediaDlg.h"
#include "mausb/ToolKey.h"
#include "resource.h"

constexpr LPCTSTR TextTCP = _T("TCP/IP");
constexpr LPCTSTR TextUDP = _T("UDP/IP");

const WideString NameNetworkType = _T("NetworkType");
const WideString TableClient = _T("TCPPortsClient");
const WideString TableServer = _T("TCPPortsServer");

static void LoadPorts(PortTable& ports, const WideString& name)
{
    LoadPortTable(ports, name);
    if (ports.empty())
    {
        ports.push_back(DefaultPortEntry);
    }
}

template <class Visit>
void CMAUSBMediaDlg::ForEachSetting(Visit visit)
{
    visit(_T("NetworkLevelLog"), m_nNetworkLevelLog, IDC_NETWORK_LOG);
    visit(_T("MaxBytesToLog"), m_nMaxBytesToLog, IDC_MAX_BYTES_TO_LOG);
    visit(_T("DefaultIPAddressTCPClient"), m_strDefaultIPAddressTCPClient, IDC_TCP_CLIENT_ADDRESS);
    visit(_T("DefaultIPAddressUDP"), m_strDefaultIPAddressUDP, IDC_UDP_ADDRESS);
    visit(_T("DefaultPortNumberUDP"), m_nDefaultPortNumberUDP, IDC_UDP_PORT);
    visit(_T("MACAddr"), m_strMACAddr, IDC_MAC_ADDRESS);
    visit(_T("SnapIdOUI"), m_nSnapIdOUI, IDC_SNAP_OUI);
    visit(_T("SnapIdPID"), m_nSnapIdPID, IDC_SNAP_PID);
    visit(_T("MaxPacketSizeTCP"), m_nMaxPacketSizeTCP, IDC_TCP_PACKET_SIZE);
    visit(_T("MaxPacketSizeUDP"), m_nMaxPacketSizeUDP, IDC_UDP_PACKET_SIZE);
    visit(_T("MaxPacketSizeSNAP"), m_nMaxPacketSizeSNAP, IDC_SNAP_PACKET_SIZE);
}

template <class Visit>
void CMAUSBMediaDlg::ForEachAdvancedSetting(Visit visit)
{
    visit(_T("AdvancedTCP_SocketSendDelay"), m_advancedTCP.m_nSocketSendDelay);
    visit(_T("AdvancedTCP_SO_SNDBUF"), m_advancedTCP.m_nSndBuf);
    visit(_T("AdvancedTCP_SO_RCVBUF"), m_advancedTCP.m_nRcvBuf);
    visit(_T("AdvancedTCP_TCP_NODELAY"), m_advancedTCP.m_nTcpNoDelay);
    visit(_T("AdvancedTCP_Default_SO_SNDBUF"), m_advancedTCP.m_nUseDefaultSndBuf);
    visit(_T("AdvancedTCP_Default_SO_RCVBUF"), m_advancedTCP.m_nUseDefaultRcvBuf);
}

void CMAUSBMediaDlg::LoadSettings()
{
    WideString networkType;
    ReadRegistryString(ToolKey(), NameNetworkType, networkType);
    m_nNetworkType = networkType == TextUDP ? NetworkUDP : NetworkTCP;
    ForEachSetting([this](const WideString& name, auto& member, int) { ReadValue(ToolKey(), name, member); });
    m_nLoadedSnapIdOUI = static_cast<int>(m_nSnapIdOUI);
    m_nLoadedSnapIdPID = static_cast<int>(m_nSnapIdPID);
    LoadAdvancedTCPSettings();
    LoadPorts(m_portsClient, TableClient);
    LoadPorts(m_portsServer, TableServer);
}

void CMAUSBMediaDlg::SaveSettings()
{
    WriteRegistryString(ToolKey(), NameNetworkType, m_nNetworkType == NetworkUDP ? TextUDP : TextTCP);
    // Taken from the edits, because a failed exchange does not update the members.
    m_nSnapIdOUI = static_cast<UINT>(m_edSnapIdOUI.GetNumber());
    m_nSnapIdPID = static_cast<UINT>(m_edSnapIdPID.GetNumber());
    ForEachSetting(
        [this](const WideString& name, const auto& member, int) { WriteValue(ToolKey(), name, member); });
    SaveAdvancedTCPSettings();
    SavePortTable(m_portsClient, TableClient);
    SavePortTable(m_portsServer, TableServer);
}

void CMAUSBMediaDlg::OnEdit(UINT id)
{
    ForEachSetting([this, id](LPCTSTR, auto& member, UINT control) {
        if (control == id)
        {
            CheckModified(member);
        }
    });
}

void CMAUSBMediaDlg::LoadAdvancedTCPSettings()
{
    ForEachAdvancedSetting(
        [this](const WideString& name, auto& member) { ReadValue(ToolKey(), name, member); });
}

void CMAUSBMediaDlg::SaveAdvancedTCPSettings()
{
    ForEachAdvancedSetting(
        [this](const WideString& name, const auto& member) { WriteValue(ToolKey(), name, member); });
}

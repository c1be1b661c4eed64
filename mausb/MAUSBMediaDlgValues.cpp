// Loading and storing the values of the MAUSB Media Settings page.
#include "mausb/MAUSBMediaDlg.h"
#include "mausb/ToolKey.h"

namespace
{
constexpr LPCTSTR TextTCP = _T("TCP/IP");
constexpr LPCTSTR TextUDP = _T("UDP/IP");

const WideString NameNetworkType = _T("NetworkType");
const WideString NameNetworkLevelLog = _T("NetworkLevelLog");
const WideString NameMaxBytesToLog = _T("MaxBytesToLog");
const WideString NameDefaultIPAddressTCPClient = _T("DefaultIPAddressTCPClient");
const WideString NameDefaultIPAddressUDP = _T("DefaultIPAddressUDP");
const WideString NameDefaultPortNumberUDP = _T("DefaultPortNumberUDP");
const WideString NameMACAddr = _T("MACAddr");
const WideString NameSnapIdOUI = _T("SnapIdOUI");
const WideString NameSnapIdPID = _T("SnapIdPID");
const WideString NameMaxPacketSizeTCP = _T("MaxPacketSizeTCP");
const WideString NameMaxPacketSizeUDP = _T("MaxPacketSizeUDP");
const WideString NameMaxPacketSizeSNAP = _T("MaxPacketSizeSNAP");

const WideString NameSocketSendDelay = _T("AdvancedTCP_SocketSendDelay");
const WideString NameSndBuf = _T("AdvancedTCP_SO_SNDBUF");
const WideString NameRcvBuf = _T("AdvancedTCP_SO_RCVBUF");
const WideString NameTcpNoDelay = _T("AdvancedTCP_TCP_NODELAY");
const WideString NameUseDefaultSndBuf = _T("AdvancedTCP_Default_SO_SNDBUF");
const WideString NameUseDefaultRcvBuf = _T("AdvancedTCP_Default_SO_RCVBUF");

const WideString TableClient = _T("TCPPortsClient");
const WideString TableServer = _T("TCPPortsServer");

void LoadPorts(PortTable& ports, const WideString& name)
{
    LoadPortTable(ports, name);
    if (ports.empty())
    {
        ports.push_back(DefaultPortEntry);
    }
}
}  // namespace

template <class Visit>
void CMAUSBMediaDlg::ForEachSetting(Visit visit)
{
    visit(NameNetworkLevelLog, m_nNetworkLevelLog);
    visit(NameMaxBytesToLog, m_nMaxBytesToLog);
    visit(NameDefaultIPAddressTCPClient, m_strDefaultIPAddressTCPClient);
    visit(NameDefaultIPAddressUDP, m_strDefaultIPAddressUDP);
    visit(NameDefaultPortNumberUDP, m_nDefaultPortNumberUDP);
    visit(NameMACAddr, m_strMACAddr);
    visit(NameSnapIdOUI, m_nSnapIdOUI);
    visit(NameSnapIdPID, m_nSnapIdPID);
    visit(NameMaxPacketSizeTCP, m_nMaxPacketSizeTCP);
    visit(NameMaxPacketSizeUDP, m_nMaxPacketSizeUDP);
    visit(NameMaxPacketSizeSNAP, m_nMaxPacketSizeSNAP);
}

template <class Visit>
void CMAUSBMediaDlg::ForEachAdvancedSetting(Visit visit)
{
    visit(NameSocketSendDelay, m_advancedTCP.m_nSocketSendDelay);
    visit(NameSndBuf, m_advancedTCP.m_nSndBuf);
    visit(NameRcvBuf, m_advancedTCP.m_nRcvBuf);
    visit(NameTcpNoDelay, m_advancedTCP.m_nTcpNoDelay);
    visit(NameUseDefaultSndBuf, m_advancedTCP.m_nUseDefaultSndBuf);
    visit(NameUseDefaultRcvBuf, m_advancedTCP.m_nUseDefaultRcvBuf);
}

void CMAUSBMediaDlg::LoadSettings()
{
    WideString networkType;
    ReadRegistryString(ToolKey(), NameNetworkType, networkType);
    m_nNetworkType = networkType == TextUDP ? NetworkUDP : NetworkTCP;
    ForEachSetting([this](const WideString& name, auto& member) { ReadValue(ToolKey(), name, member); });
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
        [this](const WideString& name, const auto& member) { WriteValue(ToolKey(), name, member); });
    SaveAdvancedTCPSettings();
    SavePortTable(m_portsClient, TableClient);
    SavePortTable(m_portsServer, TableServer);
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

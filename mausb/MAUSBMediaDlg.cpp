#include "mausb/MAUSBMediaDlg.h"

#include "mausb/PortNumbersDialog.h"
#include "resource.h"

#include <initializer_list>

IMPLEMENT_DYNAMIC(CMAUSBMediaDlg, CSettingsPage)

BEGIN_MESSAGE_MAP(CMAUSBMediaDlg, CSettingsPage)
    ON_BN_CLICKED(IDC_NETWORK_LOG, &CMAUSBMediaDlg::OnNetworkLevelLog)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_NETWORK_TCP, IDC_NETWORK_UDP, &CMAUSBMediaDlg::OnNetworkType)
    ON_CONTROL_RANGE(EN_CHANGE, IDC_TCP_CLIENT_ADDRESS, IDC_SNAP_PACKET_SIZE, &CMAUSBMediaDlg::OnEdit)
    ON_BN_CLICKED(IDC_ADVANCED_TCP, &CMAUSBMediaDlg::OnAdvancedTCP)
    ON_BN_CLICKED(IDC_TCP_CLIENT_PORTS, &CMAUSBMediaDlg::OnPortsClient)
    ON_BN_CLICKED(IDC_TCP_SERVER_PORTS, &CMAUSBMediaDlg::OnPortsServer)
END_MESSAGE_MAP()

constexpr BYTE SnapIdBase = 16;

// Moves the number from the edit to the member; UpdateControlStates fills the edit. An empty edit gives 0. A
// text that does not start with a hexadecimal number (after optional blanks, sign and 0x) fails the exchange
// without a message. The edit shows a number with its top bit set in sixteen digits: the scan function of the
// Windows runtime keeps the last eight, but the replacement in mingw-w64 does not.
static void DDX_Hex(CDataExchange* pDX, int nIDC, UINT& value)
{
    const HWND control = pDX->PrepareEditCtrl(nIDC);
    if (!pDX->m_bSaveAndValidate)
    {
        return;
    }
    TCHAR text[64] = {};
    const int length = GetWindowTextW(control, text, 64);
    UINT number = 0;
    if (length > 0 && _sntscanf(text, length, _T("%x"), &number) != 1)
    {
        pDX->Fail();
    }
    value = number;
}

static void EnableWindows(std::initializer_list<CWnd*> windows, BOOL enabled)
{
    for (CWnd* window : windows)
    {
        window->EnableWindow(enabled);
    }
}

CMAUSBMediaDlg::CMAUSBMediaDlg() : CSettingsPage(IDD_MAUSB_MEDIA)
{
    AddProduct(KauriQB);
    // The two buttons have the same text; only the group boxes around them differ.
    AddName(IDC_TCP_CLIENT_PORTS, _T("Client Port Numbers"));
    AddName(IDC_TCP_SERVER_PORTS, _T("Server Port Numbers"));
}

void CMAUSBMediaDlg::DoDataExchange(CDataExchange* pDX)
{
    CSettingsPage::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_NETWORK_LOG, m_btnNetworkLevelLog);
    DDX_Control(pDX, IDC_MAX_BYTES_TO_LOG_LABEL, m_stMaxBytesToLog);
    DDX_Control(pDX, IDC_MAX_BYTES_TO_LOG, m_edMaxBytesToLog);
    DDX_Control(pDX, IDC_TCP_OPTIONS, m_grpTCPIPOptions);
    DDX_Control(pDX, IDC_TCP_PACKET_SIZE_LABEL, m_stMaxPacketSizeTCP);
    DDX_Control(pDX, IDC_TCP_PACKET_SIZE, m_edMaxPacketSizeTCP);
    DDX_Control(pDX, IDC_ADVANCED_TCP, m_btnAdvancedTCP);
    DDX_Control(pDX, IDC_USE_UDP_FOR_ISOCH, m_btnUseUDPForIsoch);
    DDX_Control(pDX, IDC_ISOCH_LABEL, m_stIsoch);
    DDX_Control(pDX, IDC_ISOCH, m_edIsoch);
    DDX_Control(pDX, IDC_MAX_ISOCH_LABEL, m_stMaxIsoch);
    DDX_Control(pDX, IDC_MAX_ISOCH, m_edMaxIsoch);
    DDX_Control(pDX, IDC_TCP_CLIENT_ADDRESS_LABEL, m_stTCPClientIPAddress);
    DDX_Control(pDX, IDC_TCP_CLIENT_ADDRESS, m_edDefaultIPAddressTCPClient);
    DDX_Control(pDX, IDC_UDP_OPTIONS, m_grpUDPIPOptions);
    DDX_Control(pDX, IDC_UDP_ADDRESS_LABEL, m_stUDPIPAddress);
    DDX_Control(pDX, IDC_UDP_ADDRESS, m_edDefaultIPAddressUDP);
    DDX_Control(pDX, IDC_UDP_PORT_LABEL, m_stUDPPortNumber);
    DDX_Control(pDX, IDC_UDP_PORT, m_edDefaultPortNumberUDP);
    DDX_Control(pDX, IDC_UDP_PACKET_SIZE_LABEL, m_stMaxPacketSizeUDP);
    DDX_Control(pDX, IDC_UDP_PACKET_SIZE, m_edMaxPacketSizeUDP);
    DDX_Control(pDX, IDC_SNAP_OPTIONS, m_grpSNAPOptions);
    DDX_Control(pDX, IDC_MAC_ADDRESS_LABEL, m_stMACAddr);
    DDX_Control(pDX, IDC_MAC_ADDRESS, m_edMACAddr);
    DDX_Control(pDX, IDC_SNAP_ID_LABEL, m_stSnapId);
    DDX_Control(pDX, IDC_SNAP_OUI_LABEL, m_stSnapIdOUI);
    DDX_Control(pDX, IDC_SNAP_OUI, m_edSnapIdOUI);
    DDX_Control(pDX, IDC_SNAP_PID_LABEL, m_stSnapIdPID);
    DDX_Control(pDX, IDC_SNAP_PID, m_edSnapIdPID);
    DDX_Control(pDX, IDC_SNAP_PACKET_SIZE_LABEL, m_stMaxPacketSizeSNAP);
    DDX_Control(pDX, IDC_SNAP_PACKET_SIZE, m_edMaxPacketSizeSNAP);
    DDX_Check(pDX, IDC_NETWORK_LOG, m_nNetworkLevelLog);
    DDX_Text(pDX, IDC_TCP_CLIENT_ADDRESS, m_strDefaultIPAddressTCPClient);
    DDX_Radio(pDX, IDC_NETWORK_TCP, m_nNetworkType);
    DDX_Text(pDX, IDC_MAC_ADDRESS, m_strMACAddr);
    DDX_Text(pDX, IDC_MAX_BYTES_TO_LOG, m_nMaxBytesToLog);
    DDX_Text(pDX, IDC_UDP_ADDRESS, m_strDefaultIPAddressUDP);
    DDX_Text(pDX, IDC_UDP_PORT, m_nDefaultPortNumberUDP);
    DDX_Hex(pDX, IDC_SNAP_OUI, m_nSnapIdOUI);
    DDX_Hex(pDX, IDC_SNAP_PID, m_nSnapIdPID);
    DDX_Text(pDX, IDC_TCP_PACKET_SIZE, m_nMaxPacketSizeTCP);
    DDX_Text(pDX, IDC_UDP_PACKET_SIZE, m_nMaxPacketSizeUDP);
    DDX_Text(pDX, IDC_SNAP_PACKET_SIZE, m_nMaxPacketSizeSNAP);
    DDX_Check(pDX, IDC_USE_UDP_FOR_ISOCH, m_nUseUDPForIsoch);
    DDX_Text(pDX, IDC_ISOCH, m_nIsoch);
    DDX_Text(pDX, IDC_MAX_ISOCH, m_nMaxIsoch);
}

void CMAUSBMediaDlg::InitToolTips()
{
    AddToolTip(
        IDC_TCP_CLIENT_PORTS,
        _T("Select the ports with which you would like to connect to the MAUSB host, when acting as a TCP ")
        _T("client. Also select which packet types you wish to receive on each port."));
    AddToolTip(IDC_TCP_SERVER_PORTS,
               _T("Select the ports to listen on when acting as a TCP server. Also select which ")
               _T("packet types you wish to receive on each port."));
}

void CMAUSBMediaDlg::UpdateControlStates()
{
    // Each change of text here sends EN_CHANGE, and the handler updates all members from the controls.
    m_edSnapIdOUI.SetBase(SnapIdBase);
    m_edSnapIdPID.SetBase(SnapIdBase);
    m_edSnapIdOUI.SetNumber(static_cast<ULONGLONG>(m_nLoadedSnapIdOUI));
    m_edSnapIdPID.SetNumber(static_cast<ULONGLONG>(m_nLoadedSnapIdPID));
    EnableNetworkControls(m_nNetworkType);
    EnableMaxBytesToLog();
    CWnd* const unused[] = {&m_btnUseUDPForIsoch, &m_stIsoch, &m_edIsoch, &m_stMaxIsoch, &m_edMaxIsoch};
    for (CWnd* window : unused)
    {
        window->ShowWindow(SW_HIDE);
    }
    UpdateData(TRUE);
}

void CMAUSBMediaDlg::EnableNetworkControls(int networkType)
{
    EnableWindows({&m_edDefaultIPAddressTCPClient, &m_stTCPClientIPAddress, &m_grpTCPIPOptions,
                   &m_stMaxPacketSizeTCP, &m_edMaxPacketSizeTCP, &m_btnAdvancedTCP,
                   GetDlgItem(IDC_TCP_CLIENT_PORTS), GetDlgItem(IDC_TCP_SERVER_PORTS)},
                  networkType == NetworkTCP);
    EnableWindows({&m_edDefaultIPAddressUDP, &m_edDefaultPortNumberUDP, &m_stUDPIPAddress, &m_stUDPPortNumber,
                   &m_grpUDPIPOptions, &m_stMaxPacketSizeUDP, &m_edMaxPacketSizeUDP},
                  networkType == NetworkUDP);
}

void CMAUSBMediaDlg::EnableMaxBytesToLog()
{
    m_stMaxBytesToLog.EnableWindow(m_nNetworkLevelLog != 0);
    m_edMaxBytesToLog.EnableWindow(m_nNetworkLevelLog != 0);
}

void CMAUSBMediaDlg::OnNetworkLevelLog()
{
    CheckModified(m_nNetworkLevelLog);
    EnableMaxBytesToLog();
}

void CMAUSBMediaDlg::OnNetworkType(UINT id)
{
    const int before = m_nNetworkType;
    m_nNetworkType = id == IDC_NETWORK_UDP ? NetworkUDP : NetworkTCP;
    UpdateData(TRUE);
    EnableNetworkControls(m_nNetworkType);
    SetModified(m_nNetworkType != before);
}

void CMAUSBMediaDlg::OnAdvancedTCP()
{
    CAdvancedTCPSettingsDlg dialog(m_advancedTCP);
    if (dialog.DoModal() == IDOK)
    {
        SetModified(TRUE);
    }
}

void CMAUSBMediaDlg::EditPorts(LPCTSTR title, PortTable& ports)
{
    PortTable edited = ports;
    CPortNumbersDialog dialog(title, edited, this);
    if (dialog.DoModal() == IDOK)
    {
        ports = edited;
        SetModified(TRUE);
    }
}

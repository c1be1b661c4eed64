#include "mausb/AdvancedTCPSettingsDlg.h"

#include "framework/ToolTips.h"
#include "resource.h"

IMPLEMENT_DYNAMIC(CAdvancedTCPSettingsDlg, CDialogEx)

BEGIN_MESSAGE_MAP(CAdvancedTCPSettingsDlg, CDialogEx)
    ON_BN_CLICKED(IDC_TCP_USE_DEFAULT_SNDBUF, &CAdvancedTCPSettingsDlg::OnUseDefaultSndBuf)
    ON_BN_CLICKED(IDC_TCP_USE_DEFAULT_RCVBUF, &CAdvancedTCPSettingsDlg::OnUseDefaultRcvBuf)
END_MESSAGE_MAP()

// m_nTcpNoDelay is normalized because any nonzero number enables TCP_NODELAY, but DDX_Check shows numbers
// above 2 as unchecked.
CAdvancedTCPSettingsDlg::CAdvancedTCPSettingsDlg(AdvancedTCPSettings& settings)
    : CDialogEx(IDD_ADVANCED_TCP),
      m_nSocketSendDelay(settings.m_nSocketSendDelay),
      m_pSettings(&settings),
      m_nSndBuf(settings.m_nSndBuf),
      m_nRcvBuf(settings.m_nRcvBuf),
      m_nTcpNoDelay(settings.m_nTcpNoDelay != 0 ? 1 : 0),
      m_nUseDefaultSndBuf(settings.m_nUseDefaultSndBuf),
      m_nUseDefaultRcvBuf(settings.m_nUseDefaultRcvBuf)
{
}

void CAdvancedTCPSettingsDlg::DoDataExchange(CDataExchange* pDX)
{
    CDialogEx::DoDataExchange(pDX);
    DDX_Text(pDX, IDC_TCP_SEND_DELAY, m_nSocketSendDelay);
    DDX_Text(pDX, IDC_TCP_SNDBUF, m_nSndBuf);
    DDX_Text(pDX, IDC_TCP_RCVBUF, m_nRcvBuf);
    DDX_Check(pDX, IDC_TCP_NODELAY, m_nTcpNoDelay);
    DDX_Check(pDX, IDC_TCP_USE_DEFAULT_SNDBUF, m_nUseDefaultSndBuf);
    DDX_Check(pDX, IDC_TCP_USE_DEFAULT_RCVBUF, m_nUseDefaultRcvBuf);
}

BOOL CAdvancedTCPSettingsDlg::OnInitDialog()
{
    CDialogEx::OnInitDialog();
    SetUpToolTips(*this, m_pToolTip, [this] { InitToolTips(); });
    OnUseDefaultSndBuf();
    OnUseDefaultRcvBuf();
    return TRUE;
}

void CAdvancedTCPSettingsDlg::InitToolTips()
{
    const auto add = [this](int id, LPCTSTR text) { m_pToolTip->AddTool(GetDlgItem(id), text); };
    add(IDC_TCP_SEND_DELAY, _T("The amount of time the Dock will wait before sending an MAUSB packet."));
    add(IDC_TCP_USE_DEFAULT_SNDBUF,
        _T("If checked, the Dock will ignore the value in the SO_SNDBUF field and use the default value."));
    add(IDC_TCP_SNDBUF,
        _T("The size of the Socket send buffer. If this is an invalid value, then the Dock will use the ")
        _T("default value."));
    add(IDC_TCP_USE_DEFAULT_RCVBUF,
        _T("If checked, the Dock will ignore the value in the SO_RCVBUF field and use the default value."));
    add(IDC_TCP_RCVBUF,
        _T("The size of the Socket receive buffer. If this is an invalid value, then the Dock will use the ")
        _T("default value."));
    add(IDC_TCP_NODELAY, _T("If checked, the Dock disables the Nagle Algorithm for send coalescing."));
}

// A disabled size edit keeps its number, which is still stored.
void CAdvancedTCPSettingsDlg::OnUseDefaultSndBuf()
{
    UpdateData(TRUE);
    GetDlgItem(IDC_TCP_SNDBUF)->EnableWindow(m_nUseDefaultSndBuf == 0);
    GetDlgItem(IDC_TCP_SNDBUF_LABEL)->EnableWindow(m_nUseDefaultSndBuf == 0);
}

void CAdvancedTCPSettingsDlg::OnUseDefaultRcvBuf()
{
    UpdateData(TRUE);
    GetDlgItem(IDC_TCP_RCVBUF)->EnableWindow(m_nUseDefaultRcvBuf == 0);
    GetDlgItem(IDC_TCP_RCVBUF_LABEL)->EnableWindow(m_nUseDefaultRcvBuf == 0);
}

// Updates the record even if the exchange fails and the dialog stays open: the members exchanged before the
// failure have new values.
void CAdvancedTCPSettingsDlg::OnOK()
{
    CDialogEx::OnOK();
    m_pSettings->m_nSocketSendDelay = m_nSocketSendDelay;
    m_pSettings->m_nSndBuf = m_nSndBuf;
    m_pSettings->m_nRcvBuf = m_nRcvBuf;
    m_pSettings->m_nTcpNoDelay = m_nTcpNoDelay;
    m_pSettings->m_nUseDefaultSndBuf = m_nUseDefaultSndBuf;
    m_pSettings->m_nUseDefaultRcvBuf = m_nUseDefaultRcvBuf;
}

BOOL CAdvancedTCPSettingsDlg::PreTranslateMessage(MSG* pMsg)
{
    RelayToToolTips(m_pToolTip.get(), pMsg);
    return CDialogEx::PreTranslateMessage(pMsg);
}

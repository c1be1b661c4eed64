#include "pages/WaiversDlg.h"

#include "resource.h"

IMPLEMENT_DYNAMIC(CWaiversDlg, CSettingsPage)

BEGIN_MESSAGE_MAP(CWaiversDlg, CSettingsPage)
    ON_BN_CLICKED(IDC_WAIVER_PORT_NUM, &CWaiversDlg::OnPortNum)
    ON_BN_CLICKED(IDC_WAIVER_BT_REMOTE_WAKE, &CWaiversDlg::OnBtRemoteWake)
END_MESSAGE_MAP()

const WideString NamePortNum = _T("WaiverPortNum");
const WideString NameBtRemoteWake = _T("BT_RemoteWake_Waiver");

CWaiversDlg::CWaiversDlg() : CSettingsPage(IDD_WAIVERS)
{
    AddProduct(BirchQB);
    AddProduct(AlderQB);
    AddProduct(FirQB);
}

void CWaiversDlg::DoDataExchange(CDataExchange* pDX)
{
    CSettingsPage::DoDataExchange(pDX);
    DDX_Check(pDX, IDC_WAIVER_BT_REMOTE_WAKE, BT_RemoteWake_Waiver);
    if (IsProductInstalled(FirQB))
    {
        DDX_Check(pDX, IDC_WAIVER_PORT_NUM, WaiverPortNum);
    }
    DDX_Control(pDX, IDC_WAIVER_PORT_NUM, m_btnPortNum);
}

void CWaiversDlg::LoadSettings()
{
    if (IsProductInstalled(FirQB))
    {
        ReadValue(TestServicesKey, NamePortNum, WaiverPortNum);
    }
    ReadValue(TestServicesKey, NameBtRemoteWake, BT_RemoteWake_Waiver);
}

void CWaiversDlg::SaveSettings()
{
    if (IsProductInstalled(FirQB))
    {
        WriteValue(TestServicesKey, NamePortNum, WaiverPortNum);
    }
    WriteValue(TestServicesKey, NameBtRemoteWake, BT_RemoteWake_Waiver);
}

void CWaiversDlg::UpdateControlStates()
{
    if (!IsProductInstalled(FirQB))
    {
        m_btnPortNum.EnableWindow(FALSE);
    }
}

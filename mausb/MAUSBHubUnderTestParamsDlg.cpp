#include "mausb/MAUSBHubUnderTestParamsDlg.h"

#include "resource.h"

IMPLEMENT_DYNAMIC(CMAUSBHubUnderTestParamsDlg, CSettingsPage)

BEGIN_MESSAGE_MAP(CMAUSBHubUnderTestParamsDlg, CSettingsPage)
    ON_CONTROL_RANGE(EN_CHANGE, IDC_HUT_BULK_RETRIES, IDC_HUT_INTERRUPT_RETRIES,
                     &CMAUSBHubUnderTestParamsDlg::OnRetries)
    ON_BN_CLICKED(IDC_HUT_SENDS_GETPORTBWREQ, &CMAUSBHubUnderTestParamsDlg::OnSendsGetPortBWReq)
END_MESSAGE_MAP()

using Page = CMAUSBHubUnderTestParamsDlg;

const NumberSetting<Page> Page::Settings[6] = {
    {&Page::m_nBulkTransferRetriesHUT, _T("aBulkTransferRetriesHUT"), IDC_HUT_BULK_RETRIES},
    {&Page::m_nControlTransferRetriesHUT, _T("aControlTransferRetriesHUT"), IDC_HUT_CONTROL_RETRIES},
    {&Page::m_nInterruptTransferRetriesHUT, _T("aInterruptTransferRetriesHUT"), IDC_HUT_INTERRUPT_RETRIES},
    {&Page::m_nManagementRetriesHUT, _T("aManagementRetriesHUT"), IDC_HUT_MANAGEMENT_RETRIES},
    {&Page::m_nTransferSetupRetriesHUT, _T("aTransferSetupRetriesHUT"), IDC_HUT_TRANSFER_SETUP_RETRIES},
    {&Page::m_nSendsGetPortBWReq, _T("SendsGetPortBWReq"), IDC_HUT_SENDS_GETPORTBWREQ, DDX_Check}};

CMAUSBHubUnderTestParamsDlg::CMAUSBHubUnderTestParamsDlg() : CSettingsPage(IDD_MAUSB_HUT_PARAMS)
{
    AddProduct(KauriQB);
}

void CMAUSBHubUnderTestParamsDlg::DoDataExchange(CDataExchange* pDX)
{
    CSettingsPage::DoDataExchange(pDX);
    ExchangeAll(pDX, Settings);
}

#define RETRIES_TIP(kind) \
    _T("The number of ") _T(kind) _T(" retries the Host Under Test will send.\n") \
    _T("See Table 71 of the MAUSB 1.0a specification.")

void CMAUSBHubUnderTestParamsDlg::InitToolTips()
{
    AddToolTip(IDC_HUT_BULK_RETRIES, RETRIES_TIP("bulk transfer"));
    AddToolTip(IDC_HUT_CONTROL_RETRIES, RETRIES_TIP("control transfer"));
    AddToolTip(IDC_HUT_INTERRUPT_RETRIES, RETRIES_TIP("interrupt transfer"));
    AddToolTip(IDC_HUT_MANAGEMENT_RETRIES, RETRIES_TIP("management packet"));
    AddToolTip(IDC_HUT_TRANSFER_SETUP_RETRIES, RETRIES_TIP("transfer setup"));
    AddToolTip(IDC_HUT_SENDS_GETPORTBWREQ,
               _T("If checked, then the Host Under Test has the ability to send GetPortBWReq packets."));
}

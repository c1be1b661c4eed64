#include "mausb/MAUSBHubUnderTestParamsDlg.h"

#include "mausb/ToolKey.h"
#include "resource.h"

IMPLEMENT_DYNAMIC(CMAUSBHubUnderTestParamsDlg, CSettingsPage)

BEGIN_MESSAGE_MAP(CMAUSBHubUnderTestParamsDlg, CSettingsPage)
    ON_CONTROL_RANGE(EN_CHANGE, IDC_HUT_BULK_RETRIES, IDC_HUT_INTERRUPT_RETRIES,
                     &CMAUSBHubUnderTestParamsDlg::OnRetries)
    ON_BN_CLICKED(IDC_HUT_SENDS_GETPORTBWREQ, &CMAUSBHubUnderTestParamsDlg::OnSendsGetPortBWReq)
END_MESSAGE_MAP()

namespace
{
const WideString NameSendsGetPortBWReq = _T("SendsGetPortBWReq");
}

#define RETRIES_TIP(kind) \
    _T("The number of ") _T(kind) _T(" retries the Host Under Test will send.\n") \
    _T("See Table 71 of the MAUSB 1.0a specification.")

using Page = CMAUSBHubUnderTestParamsDlg;

const Page::RetrySetting Page::RetrySettings[5] = {
    {&Page::m_nBulkTransferRetriesHUT, _T("aBulkTransferRetriesHUT"), IDC_HUT_BULK_RETRIES,
     RETRIES_TIP("bulk transfer")},
    {&Page::m_nControlTransferRetriesHUT, _T("aControlTransferRetriesHUT"), IDC_HUT_CONTROL_RETRIES,
     RETRIES_TIP("control transfer")},
    {&Page::m_nInterruptTransferRetriesHUT, _T("aInterruptTransferRetriesHUT"), IDC_HUT_INTERRUPT_RETRIES,
     RETRIES_TIP("interrupt transfer")},
    {&Page::m_nManagementRetriesHUT, _T("aManagementRetriesHUT"), IDC_HUT_MANAGEMENT_RETRIES,
     RETRIES_TIP("management packet")},
    {&Page::m_nTransferSetupRetriesHUT, _T("aTransferSetupRetriesHUT"), IDC_HUT_TRANSFER_SETUP_RETRIES,
     RETRIES_TIP("transfer setup")}};

#undef RETRIES_TIP

CMAUSBHubUnderTestParamsDlg::CMAUSBHubUnderTestParamsDlg() : CSettingsPage(IDD_MAUSB_HUT_PARAMS)
{
    AddProduct(KauriQB);
}

void CMAUSBHubUnderTestParamsDlg::DoDataExchange(CDataExchange* pDX)
{
    CSettingsPage::DoDataExchange(pDX);
    for (const RetrySetting& setting : RetrySettings)
    {
        DDX_Text(pDX, setting.id, this->*setting.member);
    }
    DDX_Check(pDX, IDC_HUT_SENDS_GETPORTBWREQ, m_nSendsGetPortBWReq);
}

void CMAUSBHubUnderTestParamsDlg::LoadSettings()
{
    for (const RetrySetting& setting : RetrySettings)
    {
        ReadValue(ToolKey(), setting.name, this->*setting.member);
    }
    ReadValue(ToolKey(), NameSendsGetPortBWReq, m_nSendsGetPortBWReq);
}

void CMAUSBHubUnderTestParamsDlg::SaveSettings()
{
    for (const RetrySetting& setting : RetrySettings)
    {
        WriteValue(ToolKey(), setting.name, this->*setting.member);
    }
    WriteValue(ToolKey(), NameSendsGetPortBWReq, m_nSendsGetPortBWReq);
}

void CMAUSBHubUnderTestParamsDlg::InitToolTips()
{
    for (const RetrySetting& setting : RetrySettings)
    {
        AddToolTip(setting.id, setting.toolTip);
    }
    AddToolTip(IDC_HUT_SENDS_GETPORTBWREQ,
               _T("If checked, then the Host Under Test has the ability to send GetPortBWReq packets."));
}

void CMAUSBHubUnderTestParamsDlg::OnRetries(UINT id)
{
    for (const RetrySetting& setting : RetrySettings)
    {
        if (setting.id == static_cast<int>(id))
        {
            CheckModified(this->*setting.member);
        }
    }
}

#include "mausb/MAUSBProtocolConstantsDlg.h"

#include "resource.h"

IMPLEMENT_DYNAMIC(CMAUSBProtocolConstantsDlg, CSettingsPage)

BEGIN_MESSAGE_MAP(CMAUSBProtocolConstantsDlg, CSettingsPage)
    ON_CONTROL_RANGE(EN_CHANGE, IDC_DATA_DELAY_TCP, IDC_MANAGEMENT_DELAY_SNAP,
                     &CMAUSBProtocolConstantsDlg::OnField)
    ON_CONTROL_RANGE(EN_CHANGE, IDC_MANAGEMENT_RESPONSE, IDC_TRANSFER_RESPONSE,
                     &CMAUSBProtocolConstantsDlg::OnField)
    ON_CONTROL_RANGE(EN_CHANGE, IDC_BULK_RETRIES, IDC_TRANSFER_SETUP_RETRIES,
                     &CMAUSBProtocolConstantsDlg::OnField)
    ON_BN_CLICKED(IDC_SET_TO_DEFAULT, &CMAUSBProtocolConstantsDlg::OnSetToDefault)
    ON_BN_CLICKED(IDC_SET_TO_SUGGESTED, &CMAUSBProtocolConstantsDlg::OnSetToSuggested)
    ON_BN_CLICKED(IDC_SET_TO_MINIMUM, &CMAUSBProtocolConstantsDlg::OnSetToMinimum)
END_MESSAGE_MAP()

using Page = CMAUSBProtocolConstantsDlg;

// clang-format off
const Page::Setting Page::Settings[16] = {
    {{&Page::m_nManagementResponseTime,     _T("aManagementResponseTime"),     IDC_MANAGEMENT_RESPONSE},     5, Group::ResponseTimes},
    {{&Page::m_nTransferResponseTime,       _T("aTransferResponseTime"),       IDC_TRANSFER_RESPONSE},      10, Group::ResponseTimes},
    {{&Page::m_nDataChannelDelayTCP,        _T("aDataChannelDelayTCP"),        IDC_DATA_DELAY_TCP},        100, Group::Delays},
    {{&Page::m_nManagementChannelDelayTCP,  _T("aManagementChannelDelayTCP"),  IDC_MANAGEMENT_DELAY_TCP},  100, Group::Delays},
    {{&Page::m_nMaxIsochLinkDelayTCP,       _T("aMaxIsochLinkDelayTCP"),       IDC_ISOCH_DELAY_TCP},       100, Group::Delays},
    {{&Page::m_nDataChannelDelayUDP,        _T("aDataChannelDelayUDP"),        IDC_DATA_DELAY_UDP},        100, Group::Delays},
    {{&Page::m_nManagementChannelDelayUDP,  _T("aManagementChannelDelayUDP"),  IDC_MANAGEMENT_DELAY_UDP},  100, Group::Delays},
    {{&Page::m_nMaxIsochLinkDelayUDP,       _T("aMaxIsochLinkDelayUDP"),       IDC_ISOCH_DELAY_UDP},       100, Group::Delays},
    {{&Page::m_nDataChannelDelaySNAP,       _T("aDataChannelDelaySNAP"),       IDC_DATA_DELAY_SNAP},        25, Group::Delays},
    {{&Page::m_nManagementChannelDelaySNAP, _T("aManagementChannelDelaySNAP"), IDC_MANAGEMENT_DELAY_SNAP},  25, Group::Delays},
    {{&Page::m_nMaxIsochLinkDelaySNAP,      _T("aMaxIsochLinkDelaySNAP"),      IDC_ISOCH_DELAY_SNAP},       25, Group::Delays},
    {{&Page::m_nBulkTransferRetries,        _T("aBulkTransferRetries"),        IDC_BULK_RETRIES},            5, Group::Retries},
    {{&Page::m_nControlTransferRetries,     _T("aControlTransferRetries"),     IDC_CONTROL_RETRIES},         5, Group::Retries},
    {{&Page::m_nInterruptTransferRetries,   _T("aInterruptTransferRetries"),   IDC_INTERRUPT_RETRIES},       3, Group::Retries},
    {{&Page::m_nManagementRetries,          _T("aManagementRetries"),          IDC_MANAGEMENT_RETRIES},      4, Group::Retries},
    {{&Page::m_nTransferSetupRetries,       _T("aTransferSetupRetries"),       IDC_TRANSFER_SETUP_RETRIES},  4, Group::Retries}};
// clang-format on

CMAUSBProtocolConstantsDlg::CMAUSBProtocolConstantsDlg() : CSettingsPage(IDD_MAUSB_PROTOCOL)
{
    AddProduct(KauriQB);
    for (const Setting& setting : Settings)
    {
        this->*setting.member = setting.value;
    }
    // Screen readers cannot combine the row and column labels of these edits.
    AddName(IDC_DATA_DELAY_TCP, _T("aDataChannelDelay, TCP/IP"));
    AddName(IDC_MANAGEMENT_DELAY_TCP, _T("aManagementChannelDelay, TCP/IP"));
    AddName(IDC_ISOCH_DELAY_TCP, _T("aMaxIsochLinkDelay, TCP/IP"));
    AddName(IDC_DATA_DELAY_UDP, _T("aDataChannelDelay, UDP/IP"));
    AddName(IDC_MANAGEMENT_DELAY_UDP, _T("aManagementChannelDelay, UDP/IP"));
    AddName(IDC_ISOCH_DELAY_UDP, _T("aMaxIsochLinkDelay, UDP/IP"));
    AddName(IDC_DATA_DELAY_SNAP, _T("aDataChannelDelay, SNAP"));
    AddName(IDC_MANAGEMENT_DELAY_SNAP, _T("aManagementChannelDelay, SNAP"));
    AddName(IDC_ISOCH_DELAY_SNAP, _T("aMaxIsochLinkDelay, SNAP"));
}

void CMAUSBProtocolConstantsDlg::DoDataExchange(CDataExchange* pDX)
{
    CSettingsPage::DoDataExchange(pDX);
    ExchangeAll(pDX, Settings);
}

void CMAUSBProtocolConstantsDlg::InitToolTips()
{
    AddGroupToolTips(Group::ResponseTimes, _T("See Table 70 of the MAUSB 1.0a specification"),
                     IDC_SET_TO_DEFAULT,
                     _T("Reset to values as defined in Table 70 of the MAUSB 1.0a specification"));
    AddGroupToolTips(
        Group::Delays, _T("See Tables 70 and 73 of the MAUSB 1.0a specification"), IDC_SET_TO_SUGGESTED,
        _T("Reset to suggested values as defined in Tables 70 and 73 of the MAUSB 1.0a specification"));
    AddGroupToolTips(Group::Retries, _T("See Table 71 of the MAUSB 1.0a specification"), IDC_SET_TO_MINIMUM,
                     _T("Reset to minimum values as defined in Table 71 of the MAUSB 1.0a specification"));
}

void CMAUSBProtocolConstantsDlg::AddGroupToolTips(Group group, LPCTSTR text, int buttonId, LPCTSTR buttonText)
{
    for (const Setting& setting : Settings)
    {
        if (setting.group == group)
        {
            AddToolTip(setting.control, text);
        }
    }
    AddToolTip(buttonId, buttonText);
}

void CMAUSBProtocolConstantsDlg::ResetGroup(Group group)
{
    bool changed = false;
    for (const Setting& setting : Settings)
    {
        if (setting.group == group && SetFieldValue(this->*setting.member, setting.value, setting.control))
        {
            changed = true;
        }
    }
    // This comes last because each edit's EN_CHANGE handler finds its member unchanged and clears the mark.
    if (changed)
    {
        SetModified(TRUE);
    }
}

bool CMAUSBProtocolConstantsDlg::SetFieldValue(int& member, int value, int id)
{
    const bool changed = member != value;
    member = value;
    CString text;
    text.Format(_T("%d"), member);
    GetDlgItem(id)->SetWindowText(text);
    return changed;
}

#include "pages/XHCISettingsDlg.h"

#include "resource.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CXHCISettingsDlg, CSettingsPage)

BEGIN_MESSAGE_MAP(CXHCISettingsDlg, CSettingsPage)
    ON_CONTROL_RANGE(EN_CHANGE, IDC_IMOD_INTERVAL, IDC_ISOCH_MAX_BURST_START,
                     &CXHCISettingsDlg::OnSettingChanged)
    ON_CONTROL_RANGE(EN_CHANGE, IDC_ISOCH_DELAY_HS_READ, IDC_ISOCH_DELAY_HS_READ,
                     &CXHCISettingsDlg::OnSettingChanged)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_PROMPT_DURING_CONNECT, IDC_INT_SKIP_EVENT_DATA,
                     &CXHCISettingsDlg::OnSettingChanged)
    ON_WM_SYSCOMMAND()
END_MESSAGE_MAP()

const WideString PortDriverKey = _T("System\\CurrentControlSet\\SERVICES\\xHCIPort\\Parameters");

struct CXHCISettingsDlg::Setting : NumberSetting<CXHCISettingsDlg>
{
    const WideString& key = TestServicesKey;
};

// In the order of the exchange. LoadSettings and SaveSettings have their own orders.
const CXHCISettingsDlg::Setting CXHCISettingsDlg::Settings[] = {
    {{&Self::IMODInterval, _T("IMODInterval"), IDC_IMOD_INTERVAL}, PortDriverKey},
    {{&Self::PromptDuringConnect, _T("PromptDuringConnect"), IDC_PROMPT_DURING_CONNECT, DDX_Check}},
    {{&Self::IntMaxPacketStart, _T("IntMaxPacketStart"), IDC_INT_MAX_PACKET_START}},
    {{&Self::IntMaxBurstStart, _T("IntMaxBurstStart"), IDC_INT_MAX_BURST_START}},
    {{&Self::IsochMaxBurstStart, _T("IsochMaxBurstStart"), IDC_ISOCH_MAX_BURST_START}},
    {{&Self::IsochSkipRead, _T("IsochSkipRead"), IDC_ISOCH_SKIP_READ, DDX_Check}},
    {{&Self::IsochSkipWrite, _T("IsochSkipWrite"), IDC_ISOCH_SKIP_WRITE, DDX_Check}},
    {{&Self::IsochDelayBeforeHSRead, _T("IsochDelayBeforeHSRead"), IDC_ISOCH_DELAY_HS_READ}},
    {{&Self::StopOnError, _T("StopOnError"), IDC_STOP_ON_ERROR, DDX_Check}},
    {{&Self::InterruptSkipSG, _T("InterruptSkipSG"), IDC_INT_SKIP_SG, DDX_Check}},
    {{&Self::InterruptSkipContiguousBuffer, _T("InterruptSkipContiguousBuffer"), IDC_INT_SKIP_CONTIGUOUS,
      DDX_Check}},
    {{&Self::InterruptSkipIOC, _T("InterruptSkipIOC"), IDC_INT_SKIP_IOC, DDX_Check}},
    {{&Self::InterruptSkipEventData, _T("InterruptSkipEventData"), IDC_INT_SKIP_EVENT_DATA, DDX_Check}},
};

const CXHCISettingsDlg::Setting& CXHCISettingsDlg::SettingOf(Member member)
{
    return *std::ranges::find(Settings, member, &Setting::member);
}

CXHCISettingsDlg::CXHCISettingsDlg() : CSettingsPage(IDD_XHCI_SETTINGS)
{
    AddXhciProducts();
    // Screen readers do not find the labels of these edits, because the labels follow the edits in the
    // template.
    AddName(IDC_IMOD_INTERVAL, _T("IMOD Interval"));
    AddName(IDC_INT_MAX_PACKET_START, _T("xHCI Interrupt Loopback Starting MaxPacketSize"));
    AddName(IDC_INT_MAX_BURST_START, _T("xHCI Interrupt Loopback Starting Burst Size"));
    AddName(IDC_ISOCH_MAX_BURST_START, _T("xHCI Isoch Loopback Starting Burst Size"));
    AddName(IDC_ISOCH_DELAY_HS_READ, _T("xHCI Isoch Delay HS Read"));
}

void CXHCISettingsDlg::DoDataExchange(CDataExchange* pDX)
{
    CSettingsPage::DoDataExchange(pDX);
    ExchangeAll(pDX, Settings);
}

void CXHCISettingsDlg::LoadSettings()
{
    for (const Member member :
         {&Self::IMODInterval, &Self::IntMaxPacketStart, &Self::IntMaxBurstStart, &Self::IsochMaxBurstStart,
          &Self::IsochSkipRead, &Self::IsochSkipWrite, &Self::PromptDuringConnect,
          &Self::IsochDelayBeforeHSRead, &Self::StopOnError, &Self::InterruptSkipIOC,
          &Self::InterruptSkipEventData, &Self::InterruptSkipSG, &Self::InterruptSkipContiguousBuffer})
    {
        const Setting& setting = SettingOf(member);
        ReadValue(setting.key, setting.name, this->*member);
    }
}

void CXHCISettingsDlg::SaveSettings()
{
    for (const Member member :
         {&Self::IMODInterval, &Self::IntMaxPacketStart, &Self::IntMaxBurstStart, &Self::IsochMaxBurstStart,
          &Self::IsochSkipRead, &Self::IsochSkipWrite, &Self::PromptDuringConnect, &Self::InterruptSkipIOC,
          &Self::InterruptSkipEventData, &Self::InterruptSkipSG, &Self::InterruptSkipContiguousBuffer,
          &Self::IsochDelayBeforeHSRead, &Self::StopOnError})
    {
        const Setting& setting = SettingOf(member);
        WriteValue(setting.key, setting.name, this->*member);
    }
}

void CXHCISettingsDlg::OnSettingChanged(UINT id)
{
    CheckModifiedIn(Settings, id);
}

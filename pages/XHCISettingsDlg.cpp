#include "pages/XHCISettingsDlg.h"

#include "resource.h"

#include <algorithm>
#include <iterator>

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

namespace
{
const WideString PortDriverKey = _T("System\\CurrentControlSet\\SERVICES\\xHCIPort\\Parameters");
}  // namespace

// A setting: its member, the control that shows it, and the value that stores it.
struct CXHCISettingsDlg::Setting
{
    Member member;
    int control;
    void (*exchange)(CDataExchange*, int, int&);
    WideString name;
    const WideString& key = TestServicesKey;
};

// In the order of the exchange; reading and writing have orders of their own.
const CXHCISettingsDlg::Setting CXHCISettingsDlg::Settings[] = {
    {&Self::IMODInterval, IDC_IMOD_INTERVAL, DDX_Text, _T("IMODInterval"), PortDriverKey},
    {&Self::PromptDuringConnect, IDC_PROMPT_DURING_CONNECT, DDX_Check, _T("PromptDuringConnect")},
    {&Self::IntMaxPacketStart, IDC_INT_MAX_PACKET_START, DDX_Text, _T("IntMaxPacketStart")},
    {&Self::IntMaxBurstStart, IDC_INT_MAX_BURST_START, DDX_Text, _T("IntMaxBurstStart")},
    {&Self::IsochMaxBurstStart, IDC_ISOCH_MAX_BURST_START, DDX_Text, _T("IsochMaxBurstStart")},
    {&Self::IsochSkipRead, IDC_ISOCH_SKIP_READ, DDX_Check, _T("IsochSkipRead")},
    {&Self::IsochSkipWrite, IDC_ISOCH_SKIP_WRITE, DDX_Check, _T("IsochSkipWrite")},
    {&Self::IsochDelayBeforeHSRead, IDC_ISOCH_DELAY_HS_READ, DDX_Text, _T("IsochDelayBeforeHSRead")},
    {&Self::StopOnError, IDC_STOP_ON_ERROR, DDX_Check, _T("StopOnError")},
    {&Self::InterruptSkipSG, IDC_INT_SKIP_SG, DDX_Check, _T("InterruptSkipSG")},
    {&Self::InterruptSkipContiguousBuffer, IDC_INT_SKIP_CONTIGUOUS, DDX_Check,
     _T("InterruptSkipContiguousBuffer")},
    {&Self::InterruptSkipIOC, IDC_INT_SKIP_IOC, DDX_Check, _T("InterruptSkipIOC")},
    {&Self::InterruptSkipEventData, IDC_INT_SKIP_EVENT_DATA, DDX_Check, _T("InterruptSkipEventData")},
};

const CXHCISettingsDlg::Setting& CXHCISettingsDlg::SettingOf(Member member)
{
    return *std::find_if(std::begin(Settings), std::end(Settings),
                         [member](const Setting& setting) { return setting.member == member; });
}

CXHCISettingsDlg::CXHCISettingsDlg() : CSettingsPage(IDD_XHCI_SETTINGS)
{
    AddXhciProducts();
    // Their labels stand behind them.
    AddName(IDC_IMOD_INTERVAL, _T("IMOD Interval"));
    AddName(IDC_INT_MAX_PACKET_START, _T("xHCI Interrupt Loopback Starting MaxPacketSize"));
    AddName(IDC_INT_MAX_BURST_START, _T("xHCI Interrupt Loopback Starting Burst Size"));
    AddName(IDC_ISOCH_MAX_BURST_START, _T("xHCI Isoch Loopback Starting Burst Size"));
    AddName(IDC_ISOCH_DELAY_HS_READ, _T("xHCI Isoch Delay HS Read"));
}

void CXHCISettingsDlg::DoDataExchange(CDataExchange* pDX)
{
    CSettingsPage::DoDataExchange(pDX);
    for (const Setting& setting : Settings)
    {
        setting.exchange(pDX, setting.control, this->*setting.member);
    }
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
    for (const Setting& setting : Settings)
    {
        if (setting.control == static_cast<int>(id))
        {
            CheckModified(this->*setting.member);
        }
    }
}

void CXHCISettingsDlg::OnSysCommand(UINT, LPARAM)
{
    Default();
}

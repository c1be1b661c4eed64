#include "pages/DriversAndFirmwareDlg.h"

#include "resource.h"

IMPLEMENT_DYNAMIC(CDriversAndFirmwareDlg, CSettingsPage)

BEGIN_MESSAGE_MAP(CDriversAndFirmwareDlg, CSettingsPage)
    ON_BN_CLICKED(IDC_EHCI_SWITCH, &CDriversAndFirmwareDlg::OnEhciSwitch)
    ON_BN_CLICKED(IDC_XHCI_SWITCH, &CDriversAndFirmwareDlg::OnXhciSwitch)
    ON_BN_CLICKED(IDC_USB4HI_SWITCH, &CDriversAndFirmwareDlg::OnUsb4HiSwitch)
    ON_BN_CLICKED(IDC_RVSK_SWITCH, &CDriversAndFirmwareDlg::OnRvskSwitch)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_EHCI_BROWSE, IDC_EHCI_BROWSE, &CDriversAndFirmwareDlg::OnBrowse)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_XHCI_BROWSE, IDC_XHCI_BROWSE, &CDriversAndFirmwareDlg::OnBrowse)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_USB4HI_BROWSE, IDC_USB4HI_BROWSE, &CDriversAndFirmwareDlg::OnBrowse)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_RVSK_BROWSE, IDC_RVSK_BROWSE, &CDriversAndFirmwareDlg::OnBrowse)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_DEVICE_DRIVER_BROWSE, IDC_DEVICE_DRIVER_BROWSE,
                     &CDriversAndFirmwareDlg::OnBrowse)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_FIRMWARE_BROWSE, IDC_FIRMWARE_BROWSE, &CDriversAndFirmwareDlg::OnBrowse)
END_MESSAGE_MAP()

const WideString NamePath = _T("Path");
const WideString NameFirmware = _T("FsLsComplianceDeviceFirmware");
const WideString NameFirmwareCopy = _T("fw");  // written, but never read
const WideString NameDeviceDriver = _T("HSComplianceDeviceDriverPath");

constexpr LPCTSTR InfFilter = _T("INF Files (*.inf)|*.inf|All Files (*.*)|*.*||");
constexpr LPCTSTR HexFilter = _T("HEX Files (*.hex)|*.hex|All Files (*.*)|*.*||");

// The properties of the four driver stacks, in the order in which they are loaded and stored.
struct CDriversAndFirmwareDlg::Stack
{
    using Switch = int Self::*;
    using Path = CString Self::*;

    bool (*isNeeded)();  // by an installed tool; otherwise the stack's values are neither read nor written
    int group;
    int enableSwitcher;
    int label;
    int path;
    int browse;
    Switch enabled;
    WideString enabledName;
    Path folder;
    WideString folderKey;
};

const CDriversAndFirmwareDlg::Stack CDriversAndFirmwareDlg::Stacks[StackCount] = {
    {&Self::IsAnyEhciToolInstalled, IDC_EHCI_GROUP, IDC_EHCI_SWITCH, IDC_EHCI_LABEL, IDC_EHCI_PATH,
     IDC_EHCI_BROWSE, &Self::EnableEhciStackSwitcher, _T("EnableEhciStackSwitcher"), &Self::EhciDriverPath,
     _T("SOFTWARE\\Ostrel\\ehci_driver")},
    {&Self::IsXhciNeeded, IDC_XHCI_GROUP, IDC_XHCI_SWITCH, IDC_XHCI_LABEL, IDC_XHCI_PATH, IDC_XHCI_BROWSE,
     &Self::EnableXhciStackSwitcher, _T("EnableXhciStackSwitcher"), &Self::XhciDriverPath,
     _T("SOFTWARE\\Ostrel\\xhci_driver")},
    {&Self::IsUsb4Needed, IDC_USB4HI_GROUP, IDC_USB4HI_SWITCH, IDC_USB4HI_LABEL, IDC_USB4HI_PATH,
     IDC_USB4HI_BROWSE, &Self::EnableUsb4HiStackSwitcher, _T("EnableUsb4HiStackSwitcher"),
     &Self::Usb4HiDriverPath, _T("SOFTWARE\\Halvane\\Drivers\\usb4hi")},
    {&Self::IsUsb4Needed, IDC_RVSK_GROUP, IDC_RVSK_SWITCH, IDC_RVSK_LABEL, IDC_RVSK_PATH, IDC_RVSK_BROWSE,
     &Self::EnableRvskStackSwitcher, _T("EnableRvskStackSwitcher"), &Self::RvskDriverPath,
     _T("SOFTWARE\\Halvane\\Drivers\\rvsk")},
};

bool CDriversAndFirmwareDlg::IsXhciNeeded()
{
    return IsAnyXhciToolInstalled() || IsProductInstalled(KauriQB) || IsProductInstalled(CedarQB);
}

bool CDriversAndFirmwareDlg::IsUsb4Needed()
{
    return IsProductInstalled(CedarQB);
}

CDriversAndFirmwareDlg::CDriversAndFirmwareDlg() : CSettingsPage(IDD_DRIVERS_AND_FIRMWARE)
{
    AddProduct(AlderQB);
    AddProduct(ElmQB);
    AddProduct(HazelQB);
    AddXhciProducts();
    AddProduct(CedarQB);
    AddProduct(KauriQB);
}

void CDriversAndFirmwareDlg::DoDataExchange(CDataExchange* pDX)
{
    CSettingsPage::DoDataExchange(pDX);
    for (int index = 0; index < StackCount; ++index)
    {
        const Stack& stack = Stacks[index];
        StackControls& controls = m_stacks[index];
        DDX_Control(pDX, stack.group, controls.group);
        DDX_Control(pDX, stack.enableSwitcher, controls.enableSwitcher);
        DDX_Control(pDX, stack.label, controls.label);
        DDX_Control(pDX, stack.path, controls.path);
        DDX_Control(pDX, stack.browse, controls.browse);
        if (stack.isNeeded())
        {
            DDX_Check(pDX, stack.enableSwitcher, this->*stack.enabled);
            DDX_Text(pDX, stack.path, this->*stack.folder);
        }
    }
    DDX_Control(pDX, IDC_FIRMWARE_GROUP, m_firmware.group);
    DDX_Control(pDX, IDC_FIRMWARE_LABEL, m_firmware.label);
    DDX_Control(pDX, IDC_FIRMWARE_PATH, m_firmware.path);
    DDX_Control(pDX, IDC_FIRMWARE_BROWSE, m_firmware.browse);
    DDX_Text(pDX, IDC_FIRMWARE_PATH, FsLsComplianceDeviceFirmware);
    DDX_Control(pDX, IDC_DEVICE_DRIVER_GROUP, m_deviceDriver.group);
    DDX_Control(pDX, IDC_DEVICE_DRIVER_LABEL, m_deviceDriver.label);
    DDX_Control(pDX, IDC_DEVICE_DRIVER_PATH, m_deviceDriver.path);
    DDX_Control(pDX, IDC_DEVICE_DRIVER_BROWSE, m_deviceDriver.browse);
    DDX_Text(pDX, IDC_DEVICE_DRIVER_PATH, HSComplianceDeviceDriverPath);
}

void CDriversAndFirmwareDlg::LoadSettings()
{
    for (const Stack& stack : Stacks)
    {
        if (stack.isNeeded())
        {
            ReadValue(TestServicesKey, stack.enabledName, this->*stack.enabled);
            ReadValue(stack.folderKey, NamePath, this->*stack.folder);
        }
    }
    ReadValue(TestServicesKey, NameFirmware, FsLsComplianceDeviceFirmware);
    ReadValue(TestServicesKey, NameDeviceDriver, HSComplianceDeviceDriverPath);
}

void CDriversAndFirmwareDlg::SaveSettings()
{
    for (const Stack& stack : Stacks)
    {
        if (stack.isNeeded())
        {
            WriteValue(TestServicesKey, stack.enabledName, this->*stack.enabled);
            WriteValue(stack.folderKey, NamePath, this->*stack.folder);
        }
    }
    WriteValue(TestServicesKey, NameFirmware, FsLsComplianceDeviceFirmware);
    WriteValue(TestServicesKey, NameFirmwareCopy, FsLsComplianceDeviceFirmware);
    WriteValue(TestServicesKey, NameDeviceDriver, HSComplianceDeviceDriverPath);
}

void CDriversAndFirmwareDlg::UpdateControlStates()
{
    for (int index = 0; index < StackCount; ++index)
    {
        if (!Stacks[index].isNeeded())
        {
            StackControls& controls = m_stacks[index];
            controls.group.EnableWindow(FALSE);
            controls.enableSwitcher.EnableWindow(FALSE);
            EnablePath(controls, FALSE);
        }
    }
    UpdateEhciControls();
    UpdateXhciControls();
    UpdateUsb4HiControls();
    UpdateRvskControls();
}

void CDriversAndFirmwareDlg::OnSwitch(int& enabled, StackIndex index)
{
    CheckModified(enabled);
    UpdatePathControls(index);
}

void CDriversAndFirmwareDlg::UpdatePathControls(StackIndex index)
{
    if (Stacks[index].isNeeded())
    {
        StackControls& controls = m_stacks[index];
        EnablePath(controls, controls.enableSwitcher.GetCheck() == BST_CHECKED);
    }
}

void CDriversAndFirmwareDlg::EnablePath(StackControls& controls, BOOL enable)
{
    controls.label.EnableWindow(enable);
    controls.path.EnableWindow(enable);
    controls.browse.EnableWindow(enable);
}

void CDriversAndFirmwareDlg::InitToolTips()
{
    AddToolTip(
        IDC_EHCI_SWITCH,
        _T("If checked, QB will automatically install the compliance driver stack for your EHCI Host."));
    AddToolTip(
        IDC_XHCI_SWITCH,
        _T("If checked, QB will automatically install the compliance driver stack for your xHCI Host."));
    AddToolTip(
        IDC_USB4HI_SWITCH,
        _T("If checked, QB will automatically install the compliance driver stack for your USB4 Host."));
    AddToolTip(IDC_RVSK_SWITCH,
               _T("If checked, QB will automatically install the RVSK stack for your USB4 Host."));
}

// The user chooses a file, and the edit receives its folder. The page is not marked as modified, but OK
// stores the folder. The dialog has no initial folder, because it would access that folder before it appears;
// this takes long if the folder is on a computer that does not respond.
void CDriversAndFirmwareDlg::OnBrowse(UINT id)
{
    const bool isFirmware = id == IDC_FIRMWARE_BROWSE;
    CFileDialog dialog(TRUE, isFirmware ? _T("hex") : _T("inf"), isFirmware ? _T("*.hex") : _T("*.inf"),
                       OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, isFirmware ? HexFilter : InfFilter, this, 0,
                       TRUE);
    if (dialog.DoModal() == IDOK)
    {
        CString folder = dialog.GetPathName();
        folder.Truncate(folder.ReverseFind(_T('\\')) + 1);
        GetDlgItem(static_cast<int>(id) - 1)->SetWindowText(folder);
    }
}

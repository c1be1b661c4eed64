// The Drivers & Firmware page: the folders of the compliance driver stacks and of the compliance device's
// driver and firmware, and whether the tools install each stack automatically.
#pragma once

#include "framework/SettingsPage.h"

class CDriversAndFirmwareDlg : public CSettingsPage
{
    DECLARE_DYNAMIC(CDriversAndFirmwareDlg)

public:
    CDriversAndFirmwareDlg();

    DECLARE_MESSAGE_MAP()

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    void InitToolTips() override;
    void SaveSettings() override;
    void LoadSettings() override;
    void UpdateControlStates() override;

    afx_msg void OnEhciSwitch() { OnSwitch(EnableEhciStackSwitcher, Ehci); }
    afx_msg void OnXhciSwitch() { OnSwitch(EnableXhciStackSwitcher, Xhci); }
    afx_msg void OnUsb4HiSwitch() { OnSwitch(EnableUsb4HiStackSwitcher, Usb4Hi); }
    afx_msg void OnRvskSwitch() { OnSwitch(EnableRvskStackSwitcher, Rvsk); }
    afx_msg void OnBrowse(UINT id);

private:
    enum StackIndex
    {
        Ehci,
        Xhci,
        Usb4Hi,
        Rvsk,
        StackCount
    };
    using Self = CDriversAndFirmwareDlg;
    struct Stack;
    struct DeviceControls
    {
        CStatic group;
        CStatic label;
        CEdit path;
        CButton browse;
    };
    struct StackControls : DeviceControls
    {
        CButton enableSwitcher;
    };

    static const Stack Stacks[StackCount];
    static bool IsXhciNeeded();
    static bool IsUsb4Needed();

    void OnSwitch(int& enabled, StackIndex index);
    // Each enables or disables its stack's path controls according to the check box. It does nothing if the
    // stack is not needed.
    void UpdateEhciControls() { UpdatePathControls(Ehci); }
    void UpdateXhciControls() { UpdatePathControls(Xhci); }
    void UpdateUsb4HiControls() { UpdatePathControls(Usb4Hi); }
    void UpdateRvskControls() { UpdatePathControls(Rvsk); }
    void UpdatePathControls(StackIndex index);
    // Enables or disables the label, the edit and the Browse button.
    static void EnablePath(StackControls& controls, BOOL enable);

    StackControls m_stacks[StackCount];
    DeviceControls m_firmware;
    DeviceControls m_deviceDriver;
    int EnableEhciStackSwitcher = 1;
    int EnableXhciStackSwitcher = 1;
    int EnableUsb4HiStackSwitcher = 1;
    int EnableRvskStackSwitcher = 1;
    CString EhciDriverPath;
    CString XhciDriverPath;
    CString Usb4HiDriverPath;
    CString RvskDriverPath;
    CString HSComplianceDeviceDriverPath;
    CString FsLsComplianceDeviceFirmware;
};

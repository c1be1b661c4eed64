// The xHCI Settings page: one parameter of the xHCI port driver, and settings of the xHCI tests.
#pragma once

#include "framework/SettingsPage.h"

class CXHCISettingsDlg : public CSettingsPage
{
    DECLARE_DYNAMIC(CXHCISettingsDlg)

public:
    CXHCISettingsDlg();

    DECLARE_MESSAGE_MAP()

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    void InitToolTips() override {}
    void SaveSettings() override;
    void LoadSettings() override;

    // Handles a change of any control of the page.
    afx_msg void OnSettingChanged(UINT id);
    afx_msg void OnSysCommand(UINT, LPARAM) { Default(); }

private:
    struct Setting;
    using Self = CXHCISettingsDlg;
    using Member = int Self::*;

    static const Setting Settings[];
    static const Setting& SettingOf(Member member);

    int IMODInterval = 160;
    int PromptDuringConnect = 0;
    int IntMaxPacketStart = 0;
    int IntMaxBurstStart = 0;
    int IsochMaxBurstStart = 0;
    int IsochSkipRead = 0;
    int IsochSkipWrite = 0;
    int IsochDelayBeforeHSRead = 750;
    int StopOnError = 0;
    int InterruptSkipSG = 0;
    int InterruptSkipContiguousBuffer = 0;
    int InterruptSkipIOC = 0;
    int InterruptSkipEventData = 0;
};

// The Waivers page: two waivers for the tests. The port number waiver concerns only FirQB.
#pragma once

#include "framework/SettingsPage.h"

class CWaiversDlg : public CSettingsPage
{
    DECLARE_DYNAMIC(CWaiversDlg)

public:
    CWaiversDlg();

    DECLARE_MESSAGE_MAP()

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    void InitToolTips() override {}
    void SaveSettings() override;
    void LoadSettings() override;
    void UpdateControlStates() override;

    afx_msg void OnPortNum() { CheckModified(WaiverPortNum); }
    afx_msg void OnBtRemoteWake() { CheckModified(BT_RemoteWake_Waiver); }

private:
    CButton m_btnPortNum;
    int WaiverPortNum = 0;
    int BT_RemoteWake_Waiver = 0;
};

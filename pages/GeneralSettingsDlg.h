// The General Settings page: settings of the whole tool family, stored in SOFTWARE\Halvane\QuorvexBench.
#pragma once

#include "framework/SettingsPage.h"

class CGeneralSettingsDlg : public CSettingsPage
{
    DECLARE_DYNAMIC(CGeneralSettingsDlg)

public:
    CGeneralSettingsDlg();

    DECLARE_MESSAGE_MAP()

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    void InitToolTips() override;
    void SaveSettings() override;
    void LoadSettings() override;
    void UpdateControlStates() override;

    afx_msg void OnCertificationMode() { CheckModified(CertificationMode); }
    afx_msg void OnLogVerbosity() { CheckModified(QBLogVerbosity); }
    afx_msg void OnDisplayUpdateTime() { CheckModified(QBMinimumDisplayUpdateTime); }

private:
    int CertificationMode = 0;
    CButton m_btnCertificationMode;
    CListBox m_lbLogVerbosity;
    int QBLogVerbosity = 3;
    bool AllowDiagnosticLogging;
    CEdit m_edDisplayUpdateTime;
    int QBMinimumDisplayUpdateTime = 300;  // milliseconds
};

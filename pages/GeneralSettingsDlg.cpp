#include "pages/GeneralSettingsDlg.h"

#include "resource.h"

#include <algorithm>
#include <cstdlib>

IMPLEMENT_DYNAMIC(CGeneralSettingsDlg, CSettingsPage)

BEGIN_MESSAGE_MAP(CGeneralSettingsDlg, CSettingsPage)
    ON_BN_CLICKED(IDC_CERTIFICATION_MODE, &CGeneralSettingsDlg::OnCertificationMode)
    ON_LBN_SELCHANGE(IDC_LOG_VERBOSITY, &CGeneralSettingsDlg::OnLogVerbosity)
    ON_EN_CHANGE(IDC_DISPLAY_UPDATE_TIME, &CGeneralSettingsDlg::OnDisplayUpdateTime)
END_MESSAGE_MAP()

// The log levels in ascending order of detail. The stored level is an index into this array.
constexpr LPCTSTR LogLevels[] = {_T("Quiet"),  _T("Minimal"), _T("Low"),
                                 _T("Normal"), _T("Verbose"), _T("Diagnostic")};
constexpr int Verbose = 4;
constexpr int Diagnostic = 5;

const WideString NameCertificationMode = _T("CertificationMode");
const WideString NameLogVerbosity = _T("QBLogVerbosity");
const WideString NameDisplayUpdateTime = _T("QBMinimumDisplayUpdateTime");

static const WideString& BenchKey()
{
    static const WideString key = WideString(FamilyRoot) + _T("\\QuorvexBench");
    return key;
}

static bool IsDiagnosticLoggingAllowed()
{
    const char* value = std::getenv("QB_ALLOW_DIAGNOSTIC_LOGGING");
    return value != nullptr && value[0] != '\0' && value[0] != '0';
}

CGeneralSettingsDlg::CGeneralSettingsDlg()
    : CSettingsPage(IDD_GENERAL_SETTINGS), AllowDiagnosticLogging(IsDiagnosticLoggingAllowed())
{
}

void CGeneralSettingsDlg::DoDataExchange(CDataExchange* pDX)
{
    CSettingsPage::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_CERTIFICATION_MODE, m_btnCertificationMode);
    DDX_Check(pDX, IDC_CERTIFICATION_MODE, CertificationMode);
    DDX_Control(pDX, IDC_LOG_VERBOSITY, m_lbLogVerbosity);
    DDX_LBIndex(pDX, IDC_LOG_VERBOSITY, QBLogVerbosity);
    DDX_Control(pDX, IDC_DISPLAY_UPDATE_TIME, m_edDisplayUpdateTime);
    DDX_Text(pDX, IDC_DISPLAY_UPDATE_TIME, QBMinimumDisplayUpdateTime);
}

void CGeneralSettingsDlg::LoadSettings()
{
    ReadValue(BenchKey(), NameCertificationMode, CertificationMode);
    ReadValue(BenchKey(), NameLogVerbosity, QBLogVerbosity);
    QBLogVerbosity = std::min(QBLogVerbosity, AllowDiagnosticLogging ? Diagnostic : Verbose);
    ReadValue(BenchKey(), NameDisplayUpdateTime, QBMinimumDisplayUpdateTime);
}

void CGeneralSettingsDlg::SaveSettings()
{
    WriteValue(BenchKey(), NameCertificationMode, CertificationMode);
    WriteValue(BenchKey(), NameLogVerbosity, QBLogVerbosity);
    WriteValue(BenchKey(), NameDisplayUpdateTime, QBMinimumDisplayUpdateTime);
}

void CGeneralSettingsDlg::UpdateControlStates()
{
    for (int level = 0; level <= (AllowDiagnosticLogging ? Diagnostic : Verbose); ++level)
    {
        m_lbLogVerbosity.AddString(LogLevels[level]);
    }
    // The list was still empty during the exchange in OnInitDialog.
    m_lbLogVerbosity.SetCurSel(QBLogVerbosity);
    UpdateData(TRUE);
}

void CGeneralSettingsDlg::InitToolTips()
{
    AddToolTip(IDC_CERTIFICATION_MODE,
               _T("Enable features that are useful when testing products for certification. ")
               _T("(Must restart QB to take effect.)"));
    AddToolTip(IDC_LOG_VERBOSITY,
               _T("Select the amount of detail you would like Quorvex Bench to record in its log files."));
    AddToolTip(IDC_DISPLAY_UPDATE_TIME,
               _T("Set the minimum amount of time you would like the log output to be updated in the ")
               _T("display window.  ")
               _T("Increase the value if QB becomes unresponsive with large quantities of output."));
}

#include "shell/QBSettingsApp.h"

#include "mausb/MAUSBHubUnderTestParamsDlg.h"
#include "mausb/MAUSBMediaDlg.h"
#include "mausb/MAUSBProtocolConstantsDlg.h"
#include "mausb/MAUSBSettingsDlg.h"
#include "pages/Chapter9Dlg.h"
#include "pages/DriversAndFirmwareDlg.h"
#include "pages/GeneralSettingsDlg.h"
#include "pages/WaiversDlg.h"
#include "pages/XHCISettingsDlg.h"
#include "shell/InstalledProducts.h"
#include "shell/SettingsSheet.h"

#include <afxdisp.h>
#include <afxshellmanager.h>

#include <cstdlib>
#include <memory>
#include <new>

static void CloseInstanceMutex()
{
    if (g_hInstanceMutex != nullptr)
    {
        CloseHandle(g_hInstanceMutex);
        g_hInstanceMutex = nullptr;
    }
}

static HANDLE CreateInstanceMutex()
{
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, _T("{6DB73739-9704-4C93-A405-1DEC5683288A}"));
    g_dwInstanceMutexError = GetLastError();
    return mutex;
}

DWORD g_dwInstanceMutexError;
HANDLE g_hInstanceMutex = CreateInstanceMutex();

// Registered before the application object is constructed, so the mutex is closed after that object is
// destroyed.
[[maybe_unused]] const int g_exitRoutine = std::atexit(CloseInstanceMutex);
static CQBSettingsApp theApp;

BEGIN_MESSAGE_MAP(CQBSettingsApp, CWinApp)
    ON_COMMAND(ID_HELP, &CQBSettingsApp::OnHelp)
END_MESSAGE_MAP()

CQBSettingsApp::CQBSettingsApp() : CWinApp(nullptr), m_strAppTitle(_T("Quorvex Bench Settings")) {}

BOOL CQBSettingsApp::InitInstance()
{
    INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_WIN95_CLASSES};
    InitCommonControlsEx(&classes);
    if (g_dwInstanceMutexError == ERROR_ALREADY_EXISTS)
    {
        ActivateFirstInstance();
        return FALSE;
    }
    CWinApp::InitInstance();
    AfxEnableControlContainer(nullptr);
    const std::unique_ptr<CShellManager> shellManager(new (std::nothrow) CShellManager);
    SetRegistryKey(_T("Halvane"));
    if (!LoadInstalledProducts())
    {
        MessageBoxW(
            nullptr,
            _T("Unable to get Installed Product List.\n\nPlease make sure that you have at least one QB app ")
            _T("installed, that you are running with administrative privileges, and you have UAC turned ")
            _T("off."),
            _T("QB Settings Error"), MB_OK | MB_ICONERROR);
        return FALSE;
    }
    RunSheet();
    return FALSE;
}

void CQBSettingsApp::ActivateFirstInstance() const
{
    if (const HWND first = FindWindowW(nullptr, m_strAppTitle.c_str()))
    {
        ShowWindow(first, SW_SHOWDEFAULT);
        BringWindowToTop(first);
        SetForegroundWindow(first);
    }
}

// Each page is constructed and added before the next one, in tab order. The pages are destroyed in reverse
// order.
void CQBSettingsApp::RunSheet()
{
    CSettingsSheet sheet(m_strAppTitle.c_str());
    CGeneralSettingsDlg general;
    sheet.Join(general);
    sheet.SetActivePage(&general);
    CDriversAndFirmwareDlg driversAndFirmware;
    sheet.Join(driversAndFirmware);
    CChapter9Dlg chapter9;
    sheet.Join(chapter9);
    CWaiversDlg waivers;
    sheet.Join(waivers);
    CXHCISettingsDlg xhci;
    sheet.Join(xhci);
    CMAUSBSettingsDlg identity;
    sheet.Join(identity);
    CMAUSBMediaDlg media;
    sheet.Join(media);
    CMAUSBProtocolConstantsDlg protocol;
    sheet.Join(protocol);
    CMAUSBHubUnderTestParamsDlg hostUnderTest;
    sheet.Join(hostUnderTest);
    m_pMainWnd = &sheet;
    sheet.DoModal();
    m_pMainWnd = nullptr;
}

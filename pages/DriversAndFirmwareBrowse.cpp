// The six Browse buttons of Drivers & Firmware.
#include "pages/DriversAndFirmwareDlg.h"
#include "resource.h"

#include <algorithm>
#include <iterator>

namespace
{
struct FileKind
{
    LPCTSTR extension;
    LPCTSTR pattern;
    LPCTSTR filter;
};
constexpr FileKind InfFile = {_T("inf"), _T("*.inf"), _T("INF Files (*.inf)|*.inf|All Files (*.*)|*.*||")};
constexpr FileKind HexFile = {_T("hex"), _T("*.hex"), _T("HEX Files (*.hex)|*.hex|All Files (*.*)|*.*||")};

// A Browse button: the edit that it fills, and where its dialog starts, if there is such a folder.
struct Browser
{
    int button;
    int path;
    FileKind kind;
    int startPath;        // the edit with the folder that the start folder lies in
    LPCTSTR startFolder;  // null: the system's choice
};
constexpr Browser Browsers[] = {
    {IDC_EHCI_BROWSE, IDC_EHCI_PATH, InfFile, IDC_EHCI_PATH, _T("hcdriver")},
    {IDC_XHCI_BROWSE, IDC_XHCI_PATH, InfFile, IDC_XHCI_PATH, _T("xhcidrv")},
    {IDC_USB4HI_BROWSE, IDC_USB4HI_PATH, InfFile, IDC_USB4HI_PATH, _T("USB4_HI")},
    {IDC_RVSK_BROWSE, IDC_RVSK_PATH, InfFile, IDC_RVSK_PATH, _T("RVSK")},
    {IDC_DEVICE_DRIVER_BROWSE, IDC_DEVICE_DRIVER_PATH, InfFile, IDC_XHCI_PATH, _T("net2280")},
    {IDC_FIRMWARE_BROWSE, IDC_FIRMWARE_PATH, HexFile, 0, nullptr},
};
}  // namespace

// The user chooses a file, of which the folder is kept. Nothing marks the page; OK saves the folder even so.
void CDriversAndFirmwareDlg::OnBrowse(UINT id)
{
    const Browser& browser =
        *std::find_if(std::begin(Browsers), std::end(Browsers),
                      [id](const Browser& candidate) { return candidate.button == static_cast<int>(id); });
    CFileDialog dialog(TRUE, browser.kind.extension, browser.kind.pattern,
                       OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, browser.kind.filter, this, 0, TRUE);
    CString start;
    if (browser.startFolder != nullptr)
    {
        GetDlgItem(browser.startPath)->GetWindowText(start);
    }
    // An empty path would make it a folder relative to wherever the program was started.
    if (!start.IsEmpty())
    {
        start += browser.startFolder;
        dialog.m_ofn.lpstrInitialDir = start;
    }
    if (dialog.DoModal() == IDOK)
    {
        CString folder = dialog.GetPathName();
        folder.Truncate(folder.ReverseFind(_T('\\')) + 1);
        GetDlgItem(browser.path)->SetWindowText(folder);
    }
}

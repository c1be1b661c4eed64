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

// A Browse button and the edit that it fills.
struct Browser
{
    int button;
    int path;
    FileKind kind;
};
constexpr Browser Browsers[] = {
    {IDC_EHCI_BROWSE, IDC_EHCI_PATH, InfFile},
    {IDC_XHCI_BROWSE, IDC_XHCI_PATH, InfFile},
    {IDC_USB4HI_BROWSE, IDC_USB4HI_PATH, InfFile},
    {IDC_RVSK_BROWSE, IDC_RVSK_PATH, InfFile},
    {IDC_DEVICE_DRIVER_BROWSE, IDC_DEVICE_DRIVER_PATH, InfFile},
    {IDC_FIRMWARE_BROWSE, IDC_FIRMWARE_PATH, HexFile},
};
}  // namespace

// The user chooses a file, and the edit receives its folder. The page is not marked as modified, but OK
// stores the folder. The dialog has no initial folder, because it would access that folder before it appears;
// this takes long if the folder is on a computer that does not respond.
void CDriversAndFirmwareDlg::OnBrowse(UINT id)
{
    const Browser& browser =
        *std::find_if(std::begin(Browsers), std::end(Browsers),
                      [id](const Browser& candidate) { return candidate.button == static_cast<int>(id); });
    CFileDialog dialog(TRUE, browser.kind.extension, browser.kind.pattern,
                       OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, browser.kind.filter, this, 0, TRUE);
    if (dialog.DoModal() == IDOK)
    {
        CString folder = dialog.GetPathName();
        folder.Truncate(folder.ReverseFind(_T('\\')) + 1);
        GetDlgItem(browser.path)->SetWindowText(folder);
    }
}

// What the class library owes its users on Windows, where Wine is more lenient or has no such hardware.
#include "framework/RegistryAccess.h"
#include "mausb/PortTable.h"
#include "resource.h"
#include "support/form.h"
#include "support/imports.h"

#include <afxdlgs.h>
#include <prsht.h>

namespace
{
// Closes a window that a test would wait for in vain.
void CALLBACK CloseLate(HWND window, UINT, UINT_PTR, DWORD)
{
    PostMessageW(window, WM_CLOSE, 0, 0);
}

// A sheet of the pages, with the script run while it waits.
void RunSheet(CPropertyPage& first, CPropertyPage& second, const std::function<void(const Sheet&)>& script)
{
    CPropertySheet sheet(_T("Ways"));
    sheet.AddPage(&first);
    sheet.AddPage(&second);
    WhenOpened(_T("Ways"), [&script](const Form& form) { script(Sheet(form.Window())); });
    sheet.DoModal();
    EndWaits();
}

// Two screens: that on the right has a bar of 40 at its top, and the windows that are more than half on it.
BOOL WINAPI ScreenOf(HMONITOR monitor, LPMONITORINFO info)
{
    const bool right = monitor == reinterpret_cast<HMONITOR>(2);
    info->rcWork = right ? RECT{1600, 40, 3200, 1200} : RECT{0, 0, 1600, 1200};
    return TRUE;
}
HMONITOR WINAPI MonitorOf(HWND window, DWORD)
{
    RECT place = {};
    GetWindowRect(window, &place);
    return reinterpret_cast<HMONITOR>(INT_PTR{place.left + place.right > 3200 ? 2 : 1});
}

HWND MakeWindow(const RECT& place, HWND owner)
{
    return CreateWindowExW(0, _T("Static"), _T(""), WS_POPUP | WS_VISIBLE, place.left, place.top,
                           place.right - place.left, place.bottom - place.top, owner, nullptr,
                           AfxGetInstanceHandle(), nullptr);
}

struct HastyDialog : CDialog
{
    using CDialog::CDialog;

    BOOL OnInitDialog() override
    {
        SetTimer(m_hWnd, 1, 5000, CloseLate);
        EndDialog(77);
        return TRUE;
    }
};

INT_PTR WINAPI HiddenSheet(LPCPROPSHEETHEADERW header)
{
    const INT_PTR sheet = Replaced<decltype(HiddenSheet)>::original(header);
    ShowWindow(reinterpret_cast<HWND>(sheet), SW_HIDE);
    SetTimer(reinterpret_cast<HWND>(sheet), 1, 5000, CloseLate);
    return sheet;
}

// A query that fails leaves something else in the buffer.
LSTATUS WINAPI SpoilingQuery(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                             LPDWORD size)
{
    const DWORD room = data != nullptr ? *size : 0;
    const LSTATUS status = Replaced<decltype(SpoilingQuery)>::original(key, name, reserved, type, data, size);
    if (status != ERROR_SUCCESS && room != 0)
    {
        std::memset(data, 0xEE, room);
    }
    return status;
}
}  // namespace

TEST(WindowsWaysTest, DialogIsCentredOnTheScreenOfItsOwner)
{
    const Replaced<decltype(ScreenOf)> screens("GetMonitorInfoW", ScreenOf);
    const Replaced<decltype(MonitorOf)> monitors("MonitorFromWindow", MonitorOf);
    struct Case
    {
        RECT owner;  // empty: none
        RECT before;
        POINT after;
    };
    for (const Case& c : {Case{{2000, 300, 2400, 700}, {0, 0, 200, 100}, {2100, 450}},
                          Case{{1700, 0, 1800, 60}, {0, 0, 400, 100}, {1600, 40}},
                          Case{{1300, 300, 1700, 700}, {2000, 0, 2400, 100}, {1200, 450}},
                          Case{{}, {2000, 0, 2200, 100}, {2300, 570}},
                          // Of one that is too high the title bar can be seen.
                          Case{{}, {2000, 0, 2200, 1300}, {2300, 40}}})
    {
        const HWND owner = IsRectEmpty(&c.owner) ? nullptr : MakeWindow(c.owner, nullptr);
        CWnd dialog;
        dialog.SubclassWindow(MakeWindow(c.before, owner));
        dialog.CenterWindow();
        RECT after = {};
        GetWindowRect(dialog.m_hWnd, &after);
        EXPECT_TRUE(after.left == c.after.x && after.top == c.after.y) << after.left << ',' << after.top;
        dialog.DestroyWindow();
        DestroyWindow(owner);
    }
}

TEST(WindowsWaysTest, DialogMayEndBeforeItIsShown)
{
    EXPECT_EQ(HastyDialog(IDD_PORT_NUMBERS).DoModal(), 77);
}

TEST(WindowsWaysTest, HiddenSheetIsShownAndPageWithoutAWindowCannotBeMarked)
{
    const Replaced<decltype(HiddenSheet)> hidden("PropertySheetW", HiddenSheet);
    CPropertyPage first(IDD_WAIVERS);
    CPropertyPage second(IDD_CHAPTER9);
    first.SetModified(TRUE);
    second.SetModified(TRUE);
    RunSheet(first, second,
             [](const Sheet& sheet)
             {
                 EXPECT_FALSE(sheet.CanApply());
                 SendMessageW(sheet.Window(), PSM_SETCURSEL, 1, 0);
                 EXPECT_FALSE(sheet.CanApply());
             });
}

TEST(WindowsWaysTest, PageThatCannotBeMadeLeavesTheNextWindowAlone)
{
    // A window of a class that there is not.
    alignas(DWORD) static const WORD noSuchClass[] = {0, 0x4000, 0, 0, 0, 0, 0, 9, 9, 0, 'N', 0, 0, 0};
    CPropertyPage good(IDD_WAIVERS);
    CPropertyPage bad(IDD_WAIVERS);
    bad.GetPSP().dwFlags |= PSP_DLGINDIRECT;
    bad.GetPSP().pResource = reinterpret_cast<LPCDLGTEMPLATEW>(noSuchClass);
    RunSheet(good, bad,
             [&bad](const Sheet& sheet)
             {
                 SendMessageW(sheet.Window(), PSM_SETCURSEL, 1, 0);
                 EXPECT_EQ(bad.m_hWnd, nullptr);
                 WhenOpened(_T("Box"),
                            [](Form& box) { EXPECT_EQ(CWnd::FromHandlePermanent(box.Window()), nullptr); });
                 MessageBoxW(sheet.Window(), _T("text"), _T("Box"), MB_OKCANCEL);
             });
}

TEST(WindowsWaysTest, FailedQueryLeavesNumberAndPortTypeAsTheyWere)
{
    const Replaced<decltype(SpoilingQuery)> query("RegQueryValueExW", SpoilingQuery);
    const Text key = keys::ClientPorts + _T("\\80");
    Store(key, _T("PacketType"), Binary({1, 2, 3, 4, 5}));
    DWORD number = 300;
    ReadRegistryNumber(key, _T("PacketType"), number);
    EXPECT_EQ(number, 300U);
    PortTable table;
    EXPECT_TRUE(LoadPortTable(table, _T("TCPPortsClient")));
    EXPECT_EQ(table.back().PacketType, PacketTypeDefault);
    ClearSettings();
}

TEST(WindowsWaysTest, FileDialogKeepsItsInitialNameWhereTheStructureHasIt)
{
    EXPECT_EQ(Text(CFileDialog(TRUE, _T("inf"), _T("*.inf")).m_ofn.lpstrFile), _T("*.inf"));
    // What is too long for the field is cut.
    const CFileDialog longest(TRUE, nullptr, Text(1000, _T('x')).c_str());
    EXPECT_EQ(Text(longest.m_ofn.lpstrFile), Text(MAX_PATH - 1, _T('x')));
}

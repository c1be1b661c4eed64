// Dialogs and sheets: where they come up, and what becomes of those that do not.
#include "resource.h"
#include "support/calls.h"
#include "support/scripts.h"

#include <afxdlgs.h>
#include <prsht.h>

namespace
{
// A sheet of the pages, with the script run while it waits.
void RunSheet(CPropertySheet& sheet, CPropertyPage& first, CPropertyPage& second,
              const std::function<void(const Sheet&)>& script)
{
    sheet.AddPage(&first);
    sheet.AddPage(&second);
    WithDialog(
        _T("Trial"), [&sheet] { sheet.DoModal(); },
        [&script](const Form& form) { script(Sheet(form.Window())); });
}

HWND MakeWindow(const RECT& place, HWND owner)
{
    return CreateWindowExW(0, _T("Static"), _T(""), WS_POPUP | WS_VISIBLE, place.left, place.top,
                           place.right - place.left, place.bottom - place.top, owner, nullptr, nullptr,
                           nullptr);
}

struct HastyDialog : CDialog
{
    using CDialog::CDialog;

    BOOL OnInitDialog() override
    {
        EndDialog(77);
        return TRUE;
    }
};
}  // namespace

TEST(DialogTest, IsCentredOnTheScreenOfItsOwner)
{
    calls::AddScreen();
    // The owner, if not empty; the dialog before; its corner after. Of one that is too high the title bar can
    // be seen.
    const std::tuple<RECT, RECT, POINT> cases[] = {
        {{2000, 300, 2400, 700}, {0, 0, 200, 100}, {2100, 450}},
        {{1700, 0, 1800, 60}, {0, 0, 400, 100}, {1600, 40}},
        {{1300, 300, 1700, 700}, {2000, 0, 2400, 100}, {1200, 450}},
        {{3000, 1000, 3200, 1200}, {0, 0, 400, 300}, {2800, 900}},
        {{}, {2000, 0, 2200, 100}, {2300, 570}},
        {{}, {2000, 0, 2200, 1300}, {2300, 40}}};
    for (const auto& [ownerPlace, before, corner] : cases)
    {
        const HWND owner = IsRectEmpty(&ownerPlace) ? nullptr : MakeWindow(ownerPlace, nullptr);
        CWnd dialog;
        dialog.SubclassWindow(MakeWindow(before, owner));
        dialog.CenterWindow();
        const RECT after = PlaceOf(dialog.m_hWnd);
        EXPECT_TRUE(after.left == corner.x && after.top == corner.y) << after.left << ',' << after.top;
        dialog.DestroyWindow();
        DestroyWindow(owner);
    }
    calls::Reset();
}

TEST(DialogTest, MayEndBeforeItIsShown)
{
    EXPECT_EQ(HastyDialog(IDD_PORT_NUMBERS).DoModal(), 77);
}

TEST(SheetTest, MarksNoPageWithoutAWindow)
{
    CPropertySheet sheet(_T("Trial"));
    CPropertyPage first(IDD_WAIVERS);
    CPropertyPage second(IDD_CHAPTER9);
    first.SetModified(TRUE);
    second.SetModified(TRUE);
    RunSheet(sheet, first, second, [](const Sheet& shown) {
        EXPECT_FALSE(shown.CanApply());
        SendMessageW(shown.Window(), PSM_SETCURSEL, 1, 0);
        EXPECT_FALSE(shown.CanApply());
    });
}

TEST(SheetTest, PageThatCannotBeMadeLeavesTheNextWindowAlone)
{
    // A window of a class that there is not.
    alignas(DWORD) static const WORD noSuchClass[] = {0, 0x4000, 0, 0, 0, 0, 0, 9, 9, 0, 'N', 0, 0, 0};
    CPropertySheet sheet(_T("Trial"));
    CPropertyPage good(IDD_WAIVERS);
    CPropertyPage bad(IDD_WAIVERS);
    bad.GetPSP().dwFlags |= PSP_DLGINDIRECT;
    bad.GetPSP().pResource = reinterpret_cast<LPCDLGTEMPLATEW>(noSuchClass);
    RunSheet(sheet, good, bad, [&bad](const Sheet& shown) {
        SendMessageW(shown.Window(), PSM_SETCURSEL, 1, 0);
        EXPECT_EQ(bad.m_hWnd, nullptr);
        WithDialog(
            _T("Box"), [&shown] { MessageBoxW(shown.Window(), _T("text"), _T("Box"), MB_OKCANCEL); },
            [](const Form& box) { EXPECT_EQ(CWnd::FromHandlePermanent(box.Window()), nullptr); });
    });
}

TEST(FileDialogTest, KeepsItsInitialNameWhereTheStructureHasItAsFarAsItFits)
{
    EXPECT_EQ(Text(CFileDialog(TRUE, _T("inf"), _T("*.inf")).m_ofn.lpstrFile), _T("*.inf"));
    const CFileDialog longest(TRUE, nullptr, Text(1000, _T('x')).c_str());
    EXPECT_EQ(Text(longest.m_ofn.lpstrFile), Text(MAX_PATH - 1, _T('x')));
}

// Dialogs and sheets: where dialogs open, pages without a window, and the exchange of numbers.
#include "resource.h"
#include "support/calls.h"
#include "support/scripts.h"

#include <afxdlgs.h>
#include <prsht.h>

#include <climits>
#include <memory>
#include <optional>

using ExchangeTest = SettingsTest;

static HWND MakeWindow(const RECT& place, HWND owner)
{
    return CreateWindowExW(0, _T("Static"), _T(""), WS_POPUP | WS_VISIBLE, place.left, place.top,
                           place.right - place.left, place.bottom - place.top, owner, nullptr, nullptr,
                           nullptr);
}

TEST(DialogTest, IsCentredOnTheScreenOfItsOwner)
{
    calls::secondScreen = {1600, 40, 3200, 1200};
    // The place of the owner, empty for none; the place of the dialog before, and its corner after. If the
    // dialog is too high for the screen, its title bar must be visible.
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

TEST(SheetTest, PageThatCannotBeMadeLeavesTheNextWindowAlone)
{
    // A template whose window class does not exist.
    alignas(DWORD) static const WORD noSuchClass[] = {0, 0x4000, 0, 0, 0, 0, 0, 9, 9, 0, 'N', 0, 0, 0};
    CPropertySheet sheet(_T("Trial"));
    CPropertyPage good(IDD_WAIVERS);
    CPropertyPage bad(IDD_WAIVERS);
    bad.GetPSP().dwFlags |= PSP_DLGINDIRECT;
    bad.GetPSP().pResource = reinterpret_cast<LPCDLGTEMPLATEW>(noSuchClass);
    sheet.AddPage(&good);
    sheet.AddPage(&bad);
    const auto open = [&sheet] { sheet.DoModal(); };
    WithDialog(_T("Trial"), open, [&bad](const Form& shown) {
        SendMessageW(shown.Window(), PSM_SETCURSEL, 1, 0);
        EXPECT_EQ(bad.m_hWnd, nullptr);
        const auto show = [&shown] { MessageBoxW(shown.Window(), _T("text"), _T("Box"), MB_OKCANCEL); };
        WithDialog(_T("Box"), show,
                   [](const Form& box) { EXPECT_EQ(CWnd::FromHandlePermanent(box.Window()), nullptr); });
    });
}

TEST(WindowObjectTest, HandlerMayDestroyItsOwnWindow)
{
    struct Panel : CWnd
    {
        BOOL OnCommand(WPARAM, LPARAM) override { return DestroyWindow(); }
    };
    auto panel = std::make_unique<Panel>();
    HWND window = MakeWindow({0, 0, 9, 9}, nullptr);
    panel->SubclassWindow(window);
    SendMessageW(window, WM_COMMAND, 1, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(panel->m_hWnd, nullptr);
    window = MakeWindow({0, 0, 9, 9}, nullptr);
    panel->SubclassWindow(window);
    panel.reset();
    EXPECT_FALSE(IsWindow(window)) << "the object destroys its window";
}

TEST_F(ExchangeTest, NumbersAreTakenWholeOrNotAtAll)
{
    const std::pair<Text, std::optional<int>> cases[] = {{_T("007"), 7},
                                                         {_T(" 12\t"), 12},
                                                         {_T("+3"), 3},
                                                         {_T("-5"), -5},
                                                         {_T("2147483647"), 2147483647},
                                                         {_T("-2147483648"), INT_MIN},
                                                         {_T("-2147483649"), {}},
                                                         {_T("2147483648"), {}},
                                                         {_T("-"), {}},
                                                         {_T("1 2"), {}},
                                                         {_T("0x1"), {}},
                                                         {_T("9:"), {}},
                                                         {_T("/1"), {}},
                                                         {_T("99999999999999999999999999"), {}}};
    const Editor sheet(tabs::Xhci);
    for (const auto& [text, number] : cases)
    {
        SCOPED_TRACE(Printable(text));
        const auto enter = [&, &typed = text] { sheet.SetText(IDC_ISOCH_DELAY_HS_READ, typed); };
        EXPECT_EQ(CountPrompts(enter), number ? 0 : 1);
        if (number)
        {
            sheet.Apply();
            EXPECT_EQ(Stored(keys::TestServices, _T("IsochDelayBeforeHSRead")),
                      Dword(static_cast<DWORD>(*number)));
        }
        else
        {
            EXPECT_EQ(GetFocus(), sheet.Control(IDC_ISOCH_DELAY_HS_READ));
            EXPECT_EQ(SendMessageW(GetFocus(), EM_GETSEL, 0, 0), MAKELONG(0, text.size()));
        }
        EXPECT_EQ(CountPrompts([&] { sheet.SetText(IDC_ISOCH_DELAY_HS_READ, _T("77")); }), 0);
    }
}

// Windows and objects, the exchange of numbers, and the modal loop.
#include "resource.h"
#include "support/scripts.h"

#include <afxwin.h>

#include <memory>

namespace
{
// A window with an edit, which can take the messages that the modal loop is about to dispatch.
class Panel : public CWnd
{
public:
    Panel()
    {
        SubclassWindow(CreateWindowExW(0, _T("Static"), _T("panel"), WS_POPUP | WS_VISIBLE, 0, 0, 300, 200,
                                       nullptr, nullptr, nullptr, nullptr));
        edit = CreateWindowExW(0, _T("Edit"), _T(""), WS_CHILD | WS_VISIBLE, 0, 0, 100, 20, m_hWnd,
                               reinterpret_cast<HMENU>(INT_PTR{IdEdit}), nullptr, nullptr);
    }

    static constexpr int IdEdit = 10;
    HWND edit = nullptr;
    std::function<void()> onChange = [] {};
    std::function<BOOL(const MSG*)> onMessage = [](const MSG*) { return FALSE; };

    BOOL PreTranslateMessage(MSG* pMsg) override { return onMessage(pMsg); }

protected:
    afx_msg void OnChange() { onChange(); }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Panel, CWnd)
    ON_EN_CHANGE(Panel::IdEdit, &Panel::OnChange)
END_MESSAGE_MAP()

using ExchangeTest = SettingsTest;
}  // namespace

TEST_F(ExchangeTest, NumbersAreTakenWholeOrNotAtAll)
{
    std::vector<std::pair<Text, long long>> cases = {{_T("007"), 7},
                                                     {_T(" 12\t"), 12},
                                                     {_T("+3"), 3},
                                                     {_T("-5"), -5},
                                                     {_T("2147483647"), 2147483647},
                                                     {_T("-2147483648"), -2147483648},
                                                     {_T("-2147483649"), -2147483649},
                                                     {_T("2147483648"), 2147483648},
                                                     {_T("4294967295"), 4294967295},
                                                     {_T("4294967296"), 4294967296}};
    for (const TCHAR* none :
         {_T("-"), _T("1 2"), _T("0x1"), _T("9:"), _T("/1"), _T("99999999999999999999999999")})
    {
        cases.emplace_back(none, 1LL << 40);
    }
    const Editor sheet(tabs::Xhci);
    for (const auto& [text, number] : cases)
    {
        SCOPED_TRACE(Printable(text));
        const bool isInt = number == static_cast<int>(number);
        const auto enter = [&, &typed = text] { sheet.SetText(IDC_ISOCH_DELAY_HS_READ, typed); };
        EXPECT_EQ(CountPrompts(enter), isInt ? 0 : 1);
        if (isInt)
        {
            sheet.Apply();
            EXPECT_EQ(Stored(keys::TestServices, _T("IsochDelayBeforeHSRead")),
                      Dword(static_cast<DWORD>(number)));
        }
        else
        {
            EXPECT_EQ(GetFocus(), sheet.Control(IDC_ISOCH_DELAY_HS_READ));
            EXPECT_EQ(SendMessageW(GetFocus(), EM_GETSEL, 0, 0), MAKELONG(0, text.size()));
        }
        EXPECT_EQ(CountPrompts([&] { sheet.SetText(IDC_ISOCH_DELAY_HS_READ, _T("77")); }), 0);
    }
    sheet.Select(tabs::Media);
    for (const auto& [text, number] : cases)
    {
        SCOPED_TRACE(Printable(text));
        const bool isUnsigned = number == static_cast<UINT>(number);
        WithDialog(titles::AdvancedTCP, sheet, IDC_ADVANCED_TCP, [&, &typed = text](const Form& form) {
            form.SetText(IDC_TCP_SEND_DELAY, typed);
            EXPECT_EQ(CountPrompts([&form] { form.Click(IDOK); }), isUnsigned ? 0 : 1);
        });
        sheet.Apply();
        const StoredValue stored = Stored(keys::Kauri, _T("AdvancedTCP_SocketSendDelay"));
        EXPECT_TRUE(!isUnsigned || stored == Dword(static_cast<DWORD>(number)));
    }
}

TEST(WindowObjectTest, HandlerMayDestroyItsOwnWindow)
{
    auto panel = std::make_unique<Panel>();
    panel->onChange = [&panel] { panel->DestroyWindow(); };
    const HWND edit = panel->edit;
    SendMessageW(edit, WM_CHAR, _T('a'), 1);
    EXPECT_EQ(panel->m_hWnd, nullptr);
    EXPECT_FALSE(IsWindow(edit));
    panel = std::make_unique<Panel>();
    const HWND window = panel->m_hWnd;
    panel.reset();
    EXPECT_FALSE(IsWindow(window)) << "the object destroys its window";
}

TEST(WindowObjectTest, ModalLoopOffersAMessageToEachWindowUpToItsOwn)
{
    Panel outer;
    Panel panel;
    SetParent(panel.m_hWnd, outer.m_hWnd);
    std::vector<const CWnd*> seen;
    for (Panel* each : {&outer, &panel})
    {
        each->onMessage = [&seen, &panel, each](const MSG* message) {
            if (message->message == WM_CHAR)
            {
                seen.push_back(each);
                panel.EndModalLoop(3);
            }
            return message->message == WM_CHAR;
        };
    }
    panel.onChange = [] { ADD_FAILURE() << "a message that a window takes is not dispatched"; };
    PostMessageW(panel.edit, WM_CHAR, _T('a'), 1);
    EXPECT_EQ(panel.RunModalLoop(), 3);
    EXPECT_EQ(seen, std::vector<const CWnd*>{&panel});
    // WM_QUIT ends this loop and remains for the loops around it.
    PostQuitMessage(4);
    EXPECT_EQ(panel.RunModalLoop(), -1);
    MSG message = {};
    EXPECT_FALSE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, 4U);
}

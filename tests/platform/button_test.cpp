#include "support/controls.h"

namespace
{
class ButtonTest : public ControlTest
{
protected:
    const Codes Clicked = {BN_CLICKED};
    const Codes Nothing = {};

    HWND Make(DWORD style, int id = 1) const { return ControlTest::Make(_T("BUTTON"), style, _T("&b"), id); }

    static LRESULT CheckOf(HWND button) { return Send(button, BM_GETCHECK); }
    static bool IsPushed(HWND button) { return (Send(button, BM_GETSTATE) & BST_PUSHED) != 0; }

    static void Press(HWND button, int x) { Send(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, 3)); }
    static void Release(HWND button, int x) { Send(button, WM_LBUTTONUP, 0, MAKELPARAM(x, 3)); }
};

TEST_F(ButtonTest, KindsDifferInDialogCodeAndChecks)
{
    struct
    {
        DWORD kind;
        LRESULT dialogCode, highestCheck;
        std::vector<LRESULT> clicks;
    } const kinds[] = {
        {BS_PUSHBUTTON, DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON, 0, {0, 0}},
        {BS_DEFPUSHBUTTON, DLGC_BUTTON | DLGC_DEFPUSHBUTTON, 0, {0, 0}},
        {BS_CHECKBOX, DLGC_BUTTON, 1, {0, 0}},
        {BS_AUTOCHECKBOX, DLGC_BUTTON, 1, {1, 0, 1}},
        {BS_RADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON, 1, {0, 0}},
        {BS_AUTORADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON, 1, {1, 1}},
        {BS_3STATE, DLGC_BUTTON, 2, {0, 0}},
        {BS_AUTO3STATE, DLGC_BUTTON, 2, {1, 2, 0}},
        {BS_GROUPBOX, DLGC_STATIC, 0, {0, 0}},
    };
    for (const auto& [kind, dialogCode, highestCheck, clicks] : kinds)
    {
        HWND button = Make(kind);
        EXPECT_EQ(Send(button, WM_GETDLGCODE), dialogCode) << kind;
        std::vector<LRESULT> seen;
        m_handler = [&](HWND control, int) { seen.push_back(CheckOf(control)); };
        for (size_t click = 0; click < clicks.size(); ++click)
        {
            Send(button, BM_CLICK);
            EXPECT_EQ(Told(), Clicked) << kind;
        }
        EXPECT_EQ(seen, clicks) << kind;

        Send(button, BM_SETCHECK, BST_UNCHECKED);
        EXPECT_EQ(CheckOf(button), 0) << kind;
        Send(button, BM_SETCHECK, BST_CHECKED);
        EXPECT_EQ(CheckOf(button), std::min<LRESULT>(highestCheck, 1)) << kind;
        for (WPARAM check : {WPARAM{BST_INDETERMINATE}, WPARAM{3}, static_cast<WPARAM>(-1)})
        {
            Send(button, BM_SETCHECK, check);
            EXPECT_EQ(CheckOf(button), highestCheck) << kind << " " << check;
        }
        EXPECT_EQ(Told(), Nothing) << kind;
        DestroyWindow(button);
    }

    HWND button = Make(BS_PUSHBUTTON);
    Send(button, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    EXPECT_EQ(Send(button, WM_GETDLGCODE), DLGC_BUTTON | DLGC_DEFPUSHBUTTON);
}

TEST_F(ButtonTest, ThePressCountsOnlyIfItIsReleasedOnTheButton)
{
    HWND button = Make(BS_AUTOCHECKBOX);
    Press(button, 3);
    EXPECT_TRUE(IsPushed(button));
    EXPECT_EQ(GetCapture(), button);
    EXPECT_EQ(GetFocus(), button);
    EXPECT_EQ(Told(), Nothing);
    Send(button, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(300, 3));
    EXPECT_FALSE(IsPushed(button));
    Send(button, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(5, 3));
    EXPECT_TRUE(IsPushed(button));
    Release(button, 5);
    EXPECT_EQ(Told(), Clicked);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(IsPushed(button));

    Release(button, 5);
    Press(button, 3);
    Release(button, 300);
    Press(button, 3);
    Release(button, -1);
    Press(button, 3);
    SetFocus(Parent());
    Release(button, 3);
    EXPECT_EQ(Told(), Nothing);
    EXPECT_EQ(CheckOf(button), BST_CHECKED);

    Send(button, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(3, 3));
    Release(button, 3);
    EXPECT_EQ(Told(), Clicked);
}

TEST_F(ButtonTest, TheSpaceBarClicksAndEnterDoesNot)
{
    HWND button = Make(BS_AUTOCHECKBOX);
    SetFocus(button);
    EXPECT_EQ(Send(button, BM_GETSTATE), BST_FOCUS);
    Send(button, WM_KEYDOWN, VK_SPACE, 1);
    EXPECT_TRUE(IsPushed(button));
    EXPECT_EQ(Told(), Nothing);
    Send(button, WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(Told(), Clicked);
    EXPECT_EQ(CheckOf(button), BST_CHECKED);

    Send(button, WM_KEYUP, VK_SPACE, 1);
    Key(button, VK_RETURN);
    Send(button, WM_KEYDOWN, VK_SPACE, 1);
    SetFocus(Parent());
    Send(button, WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(Told(), Nothing);
    EXPECT_EQ(Send(button, BM_GETSTATE), BST_CHECKED);
    Send(button, BM_SETSTATE, TRUE);
    EXPECT_EQ(Send(button, BM_GETSTATE), BST_CHECKED | BST_PUSHED);
}

TEST_F(ButtonTest, ADisabledButtonCanBeClickedByTheProgram)
{
    HWND button = Make(BS_AUTOCHECKBOX | WS_DISABLED);
    Send(button, BM_CLICK);
    EXPECT_EQ(Told(), Clicked);
    EXPECT_EQ(CheckOf(button), BST_CHECKED);
    EXPECT_NE(GetFocus(), button);
}

TEST_F(ButtonTest, ARadioButtonThatIsCheckedUnchecksItsGroupAndTakesTheTabStop)
{
    HWND radio[5];
    for (int index = 0; index < 5; ++index)
    {
        DWORD group = index == 0 || index == 3 ? WS_GROUP | WS_TABSTOP : 0;
        radio[index] = Make(BS_AUTORADIOBUTTON | group, index);
    }
    auto state = [&]
    {
        std::string checks;
        for (HWND button : radio)
        {
            checks += CheckOf(button) == BST_CHECKED ? 'x' : '.';
            checks += HasTabStop(button) ? 't' : '.';
        }
        return checks;
    };
    EXPECT_EQ(state(), ".t.....t..");

    std::string seen;
    m_handler = [&](HWND, int) { seen = state(); };
    Send(radio[1], BM_CLICK);
    EXPECT_EQ(Told(), Clicked);
    EXPECT_EQ(m_ids, std::vector<int>{1});
    EXPECT_EQ(seen, "..xt...t..");
    Send(radio[2], BM_SETCHECK, BST_CHECKED);
    EXPECT_EQ(state(), "....xt.t..");
    Send(radio[4], BM_CLICK);
    EXPECT_EQ(state(), "....xt..xt");
    Send(radio[4], BM_SETCHECK, BST_UNCHECKED);
    EXPECT_EQ(state(), "....xt....");
    Told();

    SetFocus(radio[1]);
    EXPECT_EQ(Told(), Nothing);
    EXPECT_EQ(state(), "....xt....");
    Send(radio[2], BM_CLICK);  // checked already
    EXPECT_EQ(Told(), Clicked);
}

TEST_F(ButtonTest, FocusAndDoubleClicksAreToldOnRequest)
{
    HWND button = Make(BS_PUSHBUTTON | BS_NOTIFY);
    SetFocus(button);
    Send(button, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(3, 3));
    Release(button, 3);
    SetFocus(Parent());
    EXPECT_EQ(Told(), (Codes{BN_SETFOCUS, BN_DBLCLK, BN_KILLFOCUS}));
}
}  // namespace

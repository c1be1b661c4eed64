// Windows and objects, and the exchange between controls and members, on a window of the tests' own.
#include "support/form.h"

#include <afxwin.h>

#include <memory>

namespace {
constexpr int IdNumber = 10;
constexpr int IdText = 11;
constexpr int IdCheck = 12;
constexpr int IdFirstRadio = 13;
constexpr int IdSecondRadio = 14;
constexpr int IdBehindRadios = 15;

class Panel : public CWnd {
public:
    Panel() {
        SubclassWindow(CreateWindowExW(0, _T("Static"), _T("panel"), WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                                       nullptr, nullptr, nullptr));
        Add(_T("Edit"), IdNumber, WS_TABSTOP);
        Add(_T("Edit"), IdText, WS_TABSTOP);
        Add(_T("Button"), IdCheck, BS_AUTOCHECKBOX);
        Add(_T("Button"), IdFirstRadio, BS_AUTORADIOBUTTON | WS_GROUP);
        Add(_T("Button"), IdSecondRadio, BS_AUTORADIOBUTTON);
        Add(_T("Button"), IdBehindRadios, BS_AUTORADIOBUTTON | WS_GROUP);
    }

    std::function<void(CDataExchange*)> exchange;
    std::function<void()> onChange = [] {};
    int changes = 0;

    Form Controls() const { return Form(m_hWnd); }

protected:
    void DoDataExchange(CDataExchange* pDX) override { exchange(pDX); }
    afx_msg void OnChange(UINT) {
        ++changes;
        onChange();
    }

    DECLARE_MESSAGE_MAP()

private:
    void Add(LPCTSTR className, int id, DWORD style) const {
        CreateWindowExW(0, className, _T(""), WS_CHILD | WS_VISIBLE | style, 0, 20 * (id - IdNumber), 100, 20, m_hWnd,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    }
};

BEGIN_MESSAGE_MAP(Panel, CWnd)
    ON_CONTROL_RANGE(EN_CHANGE, IdNumber, IdText, &Panel::OnChange)
END_MESSAGE_MAP()

// A window that sees what the modal loop is about to dispatch.
template <class Window>
class Watched : public Window {
public:
    std::function<BOOL(const MSG*)> onMessage;

    BOOL PreTranslateMessage(MSG* pMsg) override { return onMessage(pMsg); }
};

// Saves one number from the text; false if it was refused, which takes a prompt.
template <class Number>
bool Save(Panel& panel, LPCTSTR text, Number& number) {
    panel.exchange = [&number](CDataExchange* pDX) { DDX_Text(pDX, IdNumber, number); };
    panel.Controls().SetText(IdNumber, text);
    bool saved = false;
    const int prompts = CountPrompts([&] { saved = panel.UpdateData(TRUE) != FALSE; });
    EXPECT_EQ(prompts, saved ? 0 : 1);
    return saved;
}
}  // namespace

TEST(ExchangeTest, NotificationsAreDroppedWhileItRuns) {
    Panel panel;
    Panel other;
    int number = 7;
    panel.exchange = [&](CDataExchange* pDX) {
        DDX_Text(pDX, IdNumber, number);
        // Another window's notifications go on.
        other.Controls().Type(IdText, _T("a"));
    };
    EXPECT_TRUE(panel.UpdateData(FALSE));
    EXPECT_EQ(panel.Controls().TextOf(IdNumber), _T("7"));
    EXPECT_EQ(panel.changes, 0);
    EXPECT_EQ(other.changes, 1);
    panel.Controls().Type(IdText, _T("b"));
    EXPECT_EQ(panel.changes, 1);
    // An exchange within an exchange leaves the outer lock as it was.
    panel.exchange = [&](CDataExchange* pDX) {
        if (!pDX->m_bSaveAndValidate) {
            panel.UpdateData(TRUE);
            panel.Controls().SetText(IdText, _T("c"));
        }
    };
    panel.UpdateData(FALSE);
    EXPECT_EQ(panel.changes, 1);
}

TEST(ExchangeTest, FailureEndsItAtOnceOnTheControlWithItsTextSelected) {
    Panel panel;
    int number = 7;
    CString text(_T("kept"));
    panel.exchange = [&](CDataExchange* pDX) {
        DDX_Text(pDX, IdNumber, number);
        DDX_Text(pDX, IdText, text);
    };
    panel.Controls().SetText(IdNumber, _T("7x"));
    panel.Controls().SetText(IdText, _T("new"));
    SetFocus(panel.Controls().Control(IdText));
    EXPECT_EQ(CountPrompts([&panel] { EXPECT_FALSE(panel.UpdateData(TRUE)); }), 1);
    EXPECT_EQ(number, 7);
    EXPECT_EQ(Text(text), _T("kept"));
    EXPECT_EQ(GetFocus(), panel.Controls().Control(IdNumber));
    EXPECT_EQ(SendMessageW(GetFocus(), EM_GETSEL, 0, 0), MAKELONG(0, 2));
    // A control that is not there fails as well, in either direction, and the lock is off afterwards.
    panel.exchange = [&](CDataExchange* pDX) { DDX_Text(pDX, 999, number); };
    EXPECT_FALSE(panel.UpdateData(TRUE));
    EXPECT_FALSE(panel.UpdateData(FALSE));
    panel.changes = 0;
    panel.Controls().Type(IdText, _T("b"));
    EXPECT_EQ(panel.changes, 1);
}

TEST(ExchangeTest, NumbersAreTakenWholeOrNotAtAll) {
    Panel panel;
    struct Case {
        LPCTSTR text;
        bool isInt;
        bool isUnsigned;
        DWORD value;
    };
    for (const Case& c :
         {Case{_T("007"), true, true, 7}, Case{_T(" 12\t"), true, true, 12}, Case{_T("+3"), true, true, 3},
          Case{_T("-5"), true, false, static_cast<DWORD>(-5)}, Case{_T("2147483647"), true, true, 0x7FFFFFFF},
          Case{_T("-2147483648"), true, false, 0x80000000}, Case{_T("-2147483649"), false, false, 0},
          Case{_T("2147483648"), false, true, 0x80000000}, Case{_T("4294967295"), false, true, 0xFFFFFFFF},
          Case{_T("4294967296"), false, false, 0}, Case{_T("99999999999999999999999999"), false, false, 0},
          Case{_T(""), false, false, 0}, Case{_T("-"), false, false, 0}, Case{_T("1 2"), false, false, 0},
          Case{_T("0x1"), false, false, 0}, Case{_T("9:"), false, false, 0}, Case{_T("/1"), false, false, 0}}) {
        SCOPED_TRACE(Printable(c.text));
        int number = 77;
        EXPECT_EQ(Save(panel, c.text, number), c.isInt);
        EXPECT_EQ(static_cast<DWORD>(number), c.isInt ? c.value : 77);
        UINT unsignedNumber = 77;
        EXPECT_EQ(Save(panel, c.text, unsignedNumber), c.isUnsigned);
        EXPECT_EQ(unsignedNumber, c.isUnsigned ? c.value : 77);
    }
}

TEST(ExchangeTest, ChecksAndRadiosKeepToWhatTheirControlsCanShow) {
    Panel panel;
    int check = 5;
    int radio = 1;
    panel.exchange = [&](CDataExchange* pDX) {
        DDX_Check(pDX, IdCheck, check);
        DDX_Radio(pDX, IdFirstRadio, radio);
    };
    const Form controls = panel.Controls();
    controls.Click(IdCheck);
    controls.Click(IdBehindRadios);
    panel.UpdateData(FALSE);
    EXPECT_EQ(controls.CheckOf(IdCheck), BST_UNCHECKED);
    EXPECT_EQ(controls.CheckOf(IdFirstRadio), BST_UNCHECKED);
    EXPECT_EQ(controls.CheckOf(IdSecondRadio), BST_CHECKED);
    EXPECT_EQ(controls.CheckOf(IdBehindRadios), BST_CHECKED) << "another group's";
    check = -1;
    panel.UpdateData(FALSE);
    EXPECT_EQ(controls.CheckOf(IdCheck), BST_UNCHECKED);
    controls.Click(IdCheck);
    controls.Click(IdFirstRadio);
    panel.UpdateData(TRUE);
    EXPECT_EQ(check, 1);
    EXPECT_EQ(radio, 0);
    radio = -1;
    panel.UpdateData(FALSE);
    EXPECT_EQ(controls.CheckOf(IdFirstRadio), BST_UNCHECKED);
    radio = 5;
    panel.UpdateData(TRUE);
    EXPECT_EQ(radio, -1);
}

TEST(ExchangeTest, ControlMembersAreBoundOnce) {
    Panel panel;
    CEdit edit;
    panel.exchange = [&](CDataExchange* pDX) { DDX_Control(pDX, IdText, edit); };
    EXPECT_TRUE(panel.UpdateData(FALSE));
    EXPECT_TRUE(panel.UpdateData(TRUE));
    EXPECT_EQ(edit.m_hWnd, panel.Controls().Control(IdText));
    EXPECT_EQ(panel.GetDlgItem(IdText), &edit);
    // A window belongs to one object at most.
    CEdit second;
    EXPECT_FALSE(second.SubclassWindow(edit.m_hWnd));
    edit.EnableWindow(FALSE);
    EXPECT_FALSE(panel.Controls().IsEnabled(IdText));
}

TEST(WindowObjectTest, ObjectsWithoutWindowsDoNothing) {
    CButton button;
    EXPECT_EQ(button.GetCheck(), 0);
    EXPECT_FALSE(button.UpdateData(TRUE));
    EXPECT_FALSE(button.DestroyWindow());
    EXPECT_EQ(button.GetDlgItem(1), nullptr);
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
    CString text(_T("x"));
    button.GetWindowText(text);
    EXPECT_TRUE(text.IsEmpty());
    CComboBox list;
    list.GetLBText(0, text);
    EXPECT_TRUE(text.IsEmpty());

    Panel panel;
    CEdit edit;
    edit.SubclassWindow(panel.Controls().Control(IdText));
    EXPECT_EQ(panel.GetDlgItem(999), nullptr);
    panel.DestroyWindow();
    EXPECT_EQ(panel.m_hWnd, nullptr);
    EXPECT_EQ(edit.m_hWnd, nullptr) << "its window went with the parent";
    EXPECT_FALSE(panel.UpdateData(FALSE));
}

TEST(WindowObjectTest, HandlerMayDestroyItsOwnWindow) {
    Panel panel;
    panel.onChange = [&panel] { panel.DestroyWindow(); };
    const HWND edit = panel.Controls().Control(IdText);
    SendMessageW(edit, WM_CHAR, _T('a'), 1);
    EXPECT_EQ(panel.m_hWnd, nullptr);
    EXPECT_FALSE(IsWindow(edit));

    auto owned = std::make_unique<Panel>();
    const HWND window = owned->m_hWnd;
    owned.reset();
    EXPECT_FALSE(IsWindow(window)) << "an object takes its window along";
}

TEST(WindowObjectTest, ModalLoopShowsAMessageToEachWindowUpToItsOwn) {
    Watched<Panel> panel;
    Watched<CEdit> edit;
    edit.SubclassWindow(panel.Controls().Control(IdText));
    std::vector<const CWnd*> seen;
    const auto watch = [&](const CWnd& window, const MSG* message) {
        if (message->message == WM_CHAR) {
            seen.push_back(&window);
            panel.EndModalLoop(3);
        }
        return message->message == WM_CHAR && &window == &panel;
    };
    edit.onMessage = [&](const MSG* message) { return watch(edit, message); };
    panel.onMessage = [&](const MSG* message) { return watch(panel, message); };
    PostMessageW(edit.m_hWnd, WM_CHAR, _T('a'), 1);
    EXPECT_EQ(panel.RunModalLoop(), 3);
    EXPECT_EQ(seen, (std::vector<const CWnd*>{&edit, &panel}));
    EXPECT_EQ(panel.changes, 0) << "a message that was taken is not dispatched";
    // What ends the program ends this loop too, and is seen by the loops around it.
    PostQuitMessage(4);
    EXPECT_EQ(panel.RunModalLoop(), -1);
    MSG message = {};
    EXPECT_FALSE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, 4U);
}

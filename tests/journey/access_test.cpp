// The real program without a mouse: Tab reaches every control, and keys change it.
#include "driver/editor.h"
#include "resource.h"
#include "support/registry.h"

#include <algorithm>

namespace
{
void Press(int key)
{
    // On some keyboards a digit's key types another character.
    const bool isDigit = key >= '0' && key <= '9';
    INPUT inputs[2] = {};
    for (INPUT& input : inputs)
    {
        input.type = INPUT_KEYBOARD;
        (isDigit ? input.ki.wScan : input.ki.wVk) = static_cast<WORD>(key);
        input.ki.dwFlags = isDigit ? KEYEVENTF_UNICODE : 0;
    }
    inputs[1].ki.dwFlags |= KEYEVENTF_KEYUP;
    SendInput(2, inputs, sizeof(INPUT));
}

// Holds the other key until the condition holds: a program asks for its state when it comes to the first.
bool PressWith(int held, int key, const std::function<bool()>& condition)
{
    keybd_event(static_cast<BYTE>(held), 0, 0, 0);
    Press(key);
    const bool came = WaitUntil(condition);
    keybd_event(static_cast<BYTE>(held), 0, KEYEVENTF_KEYUP, 0);
    return came;
}

// Of a button; 0 for anything else.
LONG TypeOf(HWND control)
{
    return IsOf(control, L"Button") ? GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK : 0;
}

// A window of the program, and in it the dialog whose controls are tried: a page of the sheet, or the window
// itself.
struct Walk
{
    const EditorProcess& editor;
    HWND window;
    HWND dialog;

    HWND Focus() const
    {
        GUITHREADINFO info = {};
        info.cbSize = sizeof(info);
        GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
        return info.hwndFocus;
    }

    // Where one Tab leads to; null if the focus stays.
    HWND Next() const
    {
        const HWND focus = Focus();
        Press(VK_TAB);
        return WaitUntil([&] { return Focus() != focus; }) ? Focus() : nullptr;
    }

    // Goes round by Tab, with a step back, and tries each control of the dialog that it comes to, which are
    // to be all that are live.
    void Go() const
    {
        ASSERT_TRUE(WaitUntil([this] { return IsWindowVisible(Focus()) && IsChild(window, Focus()); }));
        std::vector<HWND> live = ControlsOf(dialog);
        std::erase_if(live, [](HWND control) { return !IsLive(control); });
        const HWND first = Focus();
        HWND focus = first;
        for (int stops = 0; stops == 0 || focus != first; ++stops)
        {
            ASSERT_LT(stops, 50) << "Tab does not come round";
            ASSERT_FALSE(testing::Test::HasFailure()) << "each further fault would be waited for";
            if (GetParent(focus) == dialog)
            {
                SCOPED_TRACE(Printable(Form(dialog).Title()) + ' ' + std::to_string(GetDlgCtrlID(focus)));
                Try(focus);
            }
            std::erase(live, focus);
            focus = Next();
            ASSERT_NE(focus, nullptr);
        }
        EXPECT_EQ(live, std::vector<HWND>());
        EXPECT_TRUE(PressWith(VK_SHIFT, VK_TAB, [&] { return Focus() != first; }));
        Press(VK_TAB);
        EXPECT_TRUE(WaitUntil([&] { return Focus() == first; }));
    }

    // Of a group of radio buttons Tab comes to the one that is set.
    static bool IsLive(HWND control)
    {
        const LONG type = TypeOf(control);
        return IsWindowEnabled(control) && IsWindowVisible(control) && !IsOf(control, L"Static") &&
               type != BS_GROUPBOX &&
               (type != BS_AUTORADIOBUTTON || SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED);
    }

    // All that the dialog shows, and how many windows there are.
    Text State() const
    {
        Text state = std::to_wstring(editor.Windows().size());
        for (const HWND control : ControlsOf(dialog))
        {
            const UINT question = IsOf(control, L"Button")    ? BM_GETCHECK
                                  : IsOf(control, L"ListBox") ? LB_GETCURSEL
                                                              : CB_GETCURSEL;
            state += L'|' + Form(control).Title() + std::to_wstring(SendMessageW(control, question, 0, 0));
        }
        return state;
    }

    void Change(int key) const
    {
        const Text before = State();
        Press(key);
        EXPECT_TRUE(WaitUntil([&] { return State() != before; })) << "key " << key;
    }

    void Try(HWND control) const
    {
        const bool isList = IsOf(control, L"ListBox");
        const LONG type = TypeOf(control);
        const int id = GetDlgCtrlID(control);
        if (IsOf(control, L"Edit"))
        {
            Change(Form(control).Title() == L"1" ? '2' : '1');
        }
        else if (isList || (IsOf(control, L"ComboBox") && SendMessageW(control, CB_GETCOUNT, 0, 0) > 1))
        {
            Change(isList ? VK_UP : VK_DOWN);
        }
        else if (type == BS_AUTOCHECKBOX || type == BS_AUTORADIOBUTTON)
        {
            // There and back again, as some enable others.
            Change(type == BS_AUTOCHECKBOX ? VK_SPACE : VK_DOWN);
            Change(type == BS_AUTOCHECKBOX ? VK_SPACE : VK_UP);
        }
        else if (IsOf(control, L"Button") && id != IDOK && id != IDCANCEL)
        {
            Change(VK_SPACE);
            LeaveDialog();
        }
    }

    // Tries the dialog that a button has opened, if there is one, unless it is the system's, and leaves it.
    void LeaveDialog() const
    {
        if (editor.Windows().size() == 1)
        {
            return;
        }
        const HWND opened = editor.WaitForWindowBeside(window);
        const Walk walk = {editor, opened, opened};
        ASSERT_TRUE(WaitUntil([&] { return IsChild(opened, walk.Focus()); }));
        if (GetDlgItem(opened, IDC_PORT_EDIT_0) != nullptr || GetDlgItem(opened, IDC_TCP_NODELAY) != nullptr)
        {
            walk.Go();
        }
        Press(VK_ESCAPE);
        EXPECT_TRUE(WaitUntil([&] { return !IsWindow(opened) && IsChild(window, Focus()); }));
    }
};

using AccessJourney = SettingsTest;
}  // namespace

TEST_F(AccessJourney, EveryControlIsReachedAndChangedByKeys)
{
    Store(keys::Kauri, L"NetworkLevelLog", Dword(1));
    const EditorProcess editor;
    const Sheet sheet = editor.WaitForSheet();
    SetForegroundWindow(sheet.Window());
    for (int page = 0; page < sheet.PageCount(); ++page)
    {
        const Walk walk = {editor, sheet.Window(), sheet.Page()};
        walk.Go();
        if (Form(sheet.Page()).Title() == tabs::Media)
        {
            // Again with what the other network type enables.
            for (int stops = 0; walk.Focus() != sheet.Control(IDC_NETWORK_TCP); ++stops)
            {
                ASSERT_LT(stops, 50) << "Tab does not come to it";
                ASSERT_NE(walk.Next(), nullptr);
            }
            walk.Change(VK_DOWN);
            walk.Go();
        }
        ASSERT_TRUE(PressWith(VK_CONTROL, VK_TAB, [&] { return sheet.Page() != walk.dialog; }));
    }
    // Enter is OK, whatever has the focus.
    Press(VK_RETURN);
    ASSERT_TRUE(editor.WaitForEnd());
    EXPECT_EQ(Stored(keys::Bench, L"QBMinimumDisplayUpdateTime"), Dword(1));
}

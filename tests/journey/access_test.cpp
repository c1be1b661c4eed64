// The real program without a mouse: Tab reaches every control, and keys change its value.
#include "resource.h"
#include "support/registry.h"
#include "user.h"

namespace
{
// Holds a key while it presses another, until the condition is true: the program reads the state of the held
// key when it handles the other one.
bool PressWith(int held, int key, const std::function<bool()>& condition)
{
    keybd_event(static_cast<BYTE>(held), 0, 0, 0);
    Press(key);
    const bool isTrue = WaitUntil(condition);
    keybd_event(static_cast<BYTE>(held), 0, KEYEVENTF_KEYUP, 0);
    return isTrue;
}

// A window of the program, and the dialog in it whose controls are tried: a page of the sheet, or the window
// itself.
struct Walk
{
    const EditorProcess& editor;
    HWND window;
    HWND dialog;

    HWND Focus() const { return FocusOf(window); }

    // Presses Tab through all controls, and tries those of the dialog, which must be all that are live.
    void Go() const
    {
        ASSERT_TRUE(WaitUntil([this] { return IsWindowVisible(Focus()) && IsChild(window, Focus()); }));
        std::vector<HWND> live = ControlsOf(dialog);
        std::erase_if(live, [](HWND control) { return !IsLive(control); });
        const HWND first = Focus();
        TabThrough(window, [&](HWND control) {
            if (GetParent(control) == dialog)
            {
                SCOPED_TRACE(Printable(Form(dialog).Title()) + ' ' + std::to_string(GetDlgCtrlID(control)));
                Try(control);
            }
            std::erase(live, control);
        });
        EXPECT_EQ(live, std::vector<HWND>());
        EXPECT_TRUE(PressWith(VK_SHIFT, VK_TAB, [&] { return Focus() != first; }));
        Press(VK_TAB);
        EXPECT_TRUE(WaitUntil([&] { return Focus() == first; }));
    }

    // Of a group of radio buttons Tab reaches the checked one.
    static bool IsLive(HWND control)
    {
        const LONG type = ButtonTypeOf(control);
        return IsWindowEnabled(control) && IsWindowVisible(control) && !IsOf(control, L"Static") &&
               type != BS_GROUPBOX &&
               (type != BS_AUTORADIOBUTTON || SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED);
    }

    // All that the dialog shows, and the number of windows.
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
        const LONG type = ButtonTypeOf(control);
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
            // Changed twice, because some enable other controls.
            Change(type == BS_AUTOCHECKBOX ? VK_SPACE : VK_DOWN);
            Change(type == BS_AUTOCHECKBOX ? VK_SPACE : VK_UP);
        }
        else if (IsOf(control, L"Button") && id != IDOK && id != IDCANCEL)
        {
            Change(VK_SPACE);
            LeaveDialog();
        }
    }

    // If a button has opened a dialog, tries it unless it is the system's, and closes it.
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
            // Again with the controls that the other network type enables.
            sheet.Click(IDC_NETWORK_UDP);
            walk.Go();
        }
        ASSERT_TRUE(PressWith(VK_CONTROL, VK_TAB, [&] { return sheet.Page() != walk.dialog; }));
    }
    // Enter is OK, whatever has the focus.
    Press(VK_RETURN);
    ASSERT_TRUE(editor.WaitForEnd());
    EXPECT_EQ(Stored(keys::Bench, L"QBMinimumDisplayUpdateTime"), Dword(1));
}

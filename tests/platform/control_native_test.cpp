// What the controls off Windows must do where Wine is no judge: survive any handler, under the sanitizer, and
// follow Windows' documentation where Wine departs from it.
#include "support/controls.h"

namespace
{
// A handler may destroy the control that tells it something, whatever that is.
TEST_F(ControlTest, AControlMayBeDestroyedByWhatItTells)
{
    constexpr LPARAM Inside = MAKELPARAM(5, 5);
    using Act = std::function<void(HWND)>;
    const Act focus = [](HWND control)
    {
        SetFocus(control);
        SetFocus(GetParent(control));
    };
    const Act click = [](HWND control)
    {
        Send(control, WM_LBUTTONDOWN, MK_LBUTTON, Inside);
        Send(control, WM_LBUTTONUP, 0, Inside);
        Send(control, WM_LBUTTONDBLCLK, MK_LBUTTON, Inside);
    };
    const Act type = [](HWND control) { Type(control, _T("a\b12\x03\x16\x18\x1a")); };
    const Act drop = [](HWND control)
    {
        for (int key : {VK_F4, VK_DOWN, VK_RETURN, VK_F4, VK_ESCAPE})
        {
            Key(control, key);
        }
    };
    struct
    {
        LPCTSTR name;
        DWORD style;
        std::vector<Act> acts;
    } const controls[] = {
        {_T("STATIC"), SS_NOTIFY, {click, [](HWND control) { EnableWindow(control, FALSE); }}},
        {_T("BUTTON"),
         BS_AUTORADIOBUTTON | BS_NOTIFY,
         {focus, click, [](HWND control) { Key(control, VK_SPACE); },
          [](HWND control) { Send(control, BM_CLICK); }}},
        {_T("EDIT"),
         ES_AUTOHSCROLL,
         {focus, click, type, [](HWND control) { SetWindowTextW(control, _T("x")); },
          [](HWND control) { Send(control, EM_REPLACESEL, TRUE, _T("1234")); },
          [](HWND control) { Send(control, EM_UNDO); }, [](HWND control) { Key(control, VK_DELETE); }}},
        {_T("LISTBOX"), LBS_NOTIFY, {focus, click, [](HWND control) { Key(control, VK_DOWN); }, type}},
        {_T("COMBOBOX"), CBS_DROPDOWNLIST, {focus, click, drop, type}},
    };
    for (const auto& [name, style, acts] : controls)
    {
        for (size_t act = 0; act < acts.size(); ++act)
        {
            // The first round lets all pass, and counts; each other round breaks one.
            size_t told = 1;
            for (size_t broken = 0; broken <= told; ++broken)
            {
                HWND control = Make(name, style, _T("text"));
                Send(control, LB_ADDSTRING, 0, _T("a"));
                Send(control, CB_ADDSTRING, 0, _T("a"));
                Send(control, EM_SETLIMITTEXT, 5);
                Send(control, EM_REPLACESEL, TRUE, _T("b"));
                Told();
                size_t count = 0;
                m_handler = [&](HWND teller, int)
                {
                    if (++count == broken)
                    {
                        DestroyWindow(teller);
                    }
                };
                acts[act](control);
                m_handler = nullptr;
                EXPECT_EQ(IsWindow(control) == FALSE, broken > 0) << act;
                EXPECT_GT(count, 0u) << act;
                if (broken == 0)
                {
                    told = count;
                    DestroyWindow(control);
                }
                EXPECT_EQ(GetCapture(), nullptr);
            }
        }
    }
}

TEST_F(ControlTest, ComboBoxLosesASelectionThatIsOutOfRange)
{
    HWND combo = Make(_T("COMBOBOX"), CBS_DROPDOWNLIST);
    Send(combo, CB_ADDSTRING, 0, _T("item"));
    for (WPARAM index : {WPARAM{1}, WPARAM{99}})
    {
        Send(combo, CB_SETCURSEL, 0);
        EXPECT_EQ(Send(combo, CB_SETCURSEL, index), CB_ERR);
        EXPECT_EQ(Send(combo, CB_GETCURSEL), CB_ERR);
        EXPECT_EQ(TextOf(combo), _T(""));
    }
    Send(combo, CB_SETCURSEL, 0);
    TCHAR buffer[] = _T("#####");
    EXPECT_EQ(Send(combo, WM_GETTEXT, 3, buffer), 2);
    EXPECT_EQ(Text(buffer, 5), Text(_T("it\0##"), 5));
    EXPECT_EQ(Send(combo, CB_RESETCONTENT), CB_OKAY);
}

TEST_F(ControlTest, ANewEditIsNotModified)
{
    EXPECT_FALSE(Send(Make(_T("EDIT"), ES_AUTOHSCROLL, _T("text")), EM_GETMODIFY));
}
}  // namespace

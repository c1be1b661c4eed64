#include "control.h"

namespace headless
{
namespace
{
class Button : public Control
{
public:
    using Control::Control;

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        switch (message)
        {
        case WM_GETDLGCODE:
            return DialogCode();
        case WM_NCHITTEST:
            return Kind() == BS_GROUPBOX ? HTTRANSPARENT : Control::Handle(message, wParam, lParam);
        case BM_GETCHECK:
            return m_check;
        case BM_SETCHECK:
            SetCheck(wParam);
            return 0;
        case BM_GETSTATE:
            return m_check | (m_pushed ? BST_PUSHED : 0) | (m_focused ? BST_FOCUS : 0);
        case BM_SETSTATE:
            m_pushed = wParam != 0;
            return 0;
        case BM_SETSTYLE:
            SetStyle((Style() & ~static_cast<DWORD>(BS_TYPEMASK)) | (wParam & BS_TYPEMASK));
            return 0;
        case BM_CLICK:
            Click();
            return 0;
        case WM_SETFOCUS:
            m_focused = true;
            return TellIfWanted(BN_SETFOCUS);
        case WM_KILLFOCUS:
            return OnKillFocus();
        default:
            return HandleInput(message, wParam, lParam);
        }
    }

private:
    DWORD Kind() const { return Style() & BS_TYPEMASK; }
    bool IsRadio() const { return Kind() == BS_RADIOBUTTON || Kind() == BS_AUTORADIOBUTTON; }

    LRESULT DialogCode() const
    {
        switch (Kind())
        {
        case BS_PUSHBUTTON:
            return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
        case BS_DEFPUSHBUTTON:
            return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON:
            return DLGC_BUTTON | DLGC_RADIOBUTTON;
        case BS_GROUPBOX:
            return DLGC_STATIC;
        default:
            return DLGC_BUTTON;
        }
    }

    int LastCheck() const
    {
        switch (Kind())
        {
        case BS_3STATE:
        case BS_AUTO3STATE:
            return BST_INDETERMINATE;
        case BS_CHECKBOX:
        case BS_AUTOCHECKBOX:
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON:
            return BST_CHECKED;
        default:
            return BST_UNCHECKED;
        }
    }

    // A state that the button does not have becomes its last.
    void SetCheck(WPARAM check)
    {
        int last = LastCheck();
        m_check = check > static_cast<WPARAM>(last) ? last : static_cast<int>(check);
        if (IsRadio())
        {
            // Tab goes to the button of a group that is checked.
            SetStyle(m_check == BST_CHECKED ? Style() | WS_TABSTOP
                                            : Style() & ~static_cast<DWORD>(WS_TABSTOP));
        }
        if (Kind() == BS_AUTORADIOBUTTON && m_check == BST_CHECKED)
        {
            UncheckRest();
        }
    }

    // Unchecks the other radio buttons from the nearest WS_GROUP up to the next.
    void UncheckRest() const
    {
        auto style = [](HWND window) { return GetWindowLongPtrW(window, GWL_STYLE); };
        auto startsGroup = [&](HWND window) { return (style(window) & WS_GROUP) != 0; };
        HWND button = Window();
        while (!startsGroup(button) && GetWindow(button, GW_HWNDPREV) != nullptr)
        {
            button = GetWindow(button, GW_HWNDPREV);
        }
        for (bool first = true; button != nullptr && (first || !startsGroup(button));
             button = GetWindow(button, GW_HWNDNEXT), first = false)
        {
            if (button != Window() && (style(button) & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE &&
                (SendMessageW(button, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0)
            {
                SendMessageW(button, BM_SETCHECK, BST_UNCHECKED, 0);
            }
        }
    }

    // The button has changed when its parent hears of the click.
    void Clicked()
    {
        switch (Kind())
        {
        case BS_AUTOCHECKBOX:
        case BS_AUTO3STATE:
            SetCheck(m_check == LastCheck() ? BST_UNCHECKED : static_cast<WPARAM>(m_check) + 1);
            break;
        case BS_AUTORADIOBUTTON:
            SetCheck(BST_CHECKED);
            break;
        default:
            break;
        }
        static_cast<void>(Notify(BN_CLICKED));
    }

    // A disabled button is clicked just the same.
    void Click() const
    {
        HWND window = Window();
        SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, 0);
        SendMessageW(window, WM_LBUTTONUP, 0, 0);
    }

    LRESULT TellIfWanted(int code) const
    {
        if ((Style() & BS_NOTIFY) != 0)
        {
            static_cast<void>(Notify(code));
        }
        return 0;
    }

    LRESULT OnKillFocus()
    {
        m_focused = false;
        m_pressed = false;
        m_pushed = false;
        return Release() ? TellIfWanted(BN_KILLFOCUS) : 0;
    }

    LRESULT HandleInput(UINT message, WPARAM wParam, LPARAM lParam)
    {
        switch (message)
        {
        case WM_LBUTTONDBLCLK:
            if ((Style() & BS_NOTIFY) != 0 || Kind() == BS_RADIOBUTTON)
            {
                static_cast<void>(Notify(BN_DBLCLK));
                return 0;
            }
            [[fallthrough]];
        case WM_LBUTTONDOWN:
            SetCapture(Window());
            if (TakeFocus())
            {
                m_pressed = m_pushed = true;
            }
            return 0;
        case WM_MOUSEMOVE:
            if (m_pressed)
            {
                m_pushed = IsInside(lParam);
            }
            return 0;
        case WM_LBUTTONUP:
            OnRelease(IsInside(lParam));
            return 0;
        case WM_KEYDOWN:
            if (wParam == VK_SPACE)
            {
                SetCapture(Window());
                m_pressed = m_pushed = true;
            }
            return 0;
        case WM_KEYUP:
            if (wParam == VK_SPACE)
            {
                OnRelease(true);
            }
            return 0;
        case WM_CAPTURECHANGED:
            m_pressed = m_pushed = false;
            return 0;
        default:
            return Control::Handle(message, wParam, lParam);
        }
    }

    bool IsInside(LPARAM lParam) const
    {
        RECT rect = {};
        GetClientRect(Window(), &rect);
        return MouseX(lParam) >= 0 && MouseX(lParam) < rect.right && MouseY(lParam) >= 0 &&
               MouseY(lParam) < rect.bottom;
    }

    void OnRelease(bool inside)
    {
        bool pressed = m_pressed;
        m_pressed = m_pushed = false;
        if (Release() && pressed && inside)
        {
            Clicked();
        }
    }

    int m_check = BST_UNCHECKED;
    bool m_pressed = false;  // by the mouse or the space bar, not released yet
    bool m_pushed = false;   // looks it
    bool m_focused = false;
};
}  // namespace

void RegisterButton()
{
    RegisterControl<Button>(u"Button");
}
}  // namespace headless

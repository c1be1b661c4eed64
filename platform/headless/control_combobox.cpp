// Drop-down lists. The list has no window of its own: dropped is a state, and keys choose in it.
#include "control.h"
#include "list_items.h"
#include "unicode.h"

namespace headless
{
namespace
{
class ComboBox : public Control
{
public:
    explicit ComboBox(HWND window) : Control(window), m_items((Style() & CBS_SORT) != 0) {}

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        auto text = reinterpret_cast<LPCWSTR>(lParam);
        auto index = static_cast<int>(wParam);
        switch (message)
        {
        case CB_ADDSTRING:
            return m_items.Add(text);
        case CB_INSERTSTRING:
            return m_items.Insert(index, text);
        case CB_DELETESTRING:
            return m_items.Delete(index);
        case CB_RESETCONTENT:
            m_items.Clear();
            return CB_OKAY;
        case CB_GETCOUNT:
            return m_items.Count();
        case CB_GETCURSEL:
            return m_items.Selected();
        case CB_SETCURSEL:
            if (!m_items.Has(index))
            {
                m_items.DropSelection();
            }
            return m_items.Select(index);
        case CB_GETLBTEXT:
            return m_items.GetText(index, reinterpret_cast<LPWSTR>(lParam));
        case CB_GETLBTEXTLEN:
            return m_items.GetText(index, nullptr);
        case CB_GETITEMDATA:
            return m_items.Data(index);
        case CB_SETITEMDATA:
            return m_items.SetData(index, lParam) ? TRUE : CB_ERR;
        case CB_FINDSTRING:
            return m_items.Find(index, text, false);
        case CB_FINDSTRINGEXACT:
            return m_items.Find(index, text, true);
        case CB_SELECTSTRING:
            return m_items.FindAndSelect(index, text);
        case CB_SHOWDROPDOWN:
            static_cast<void>(wParam != 0 ? Drop() : Close(CBN_SELENDCANCEL));
            return TRUE;
        case CB_GETDROPPEDSTATE:
            return m_dropped;
        case WM_SETTEXT:
            return CB_ERR;
        case WM_GETTEXT:
            return static_cast<LRESULT>(
                CopyText(reinterpret_cast<LPWSTR>(lParam), wParam, m_items.Text(m_items.Selected())));
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(m_items.Text(m_items.Selected()).size());
        default:
            return HandleInput(message, wParam, lParam);
        }
    }

private:
    LRESULT HandleInput(UINT message, WPARAM wParam, LPARAM lParam)
    {
        switch (message)
        {
        case WM_CREATE:
            Shrink();
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS |
                   (m_dropped && EndsChoice(reinterpret_cast<const MSG*>(lParam)) ? DLGC_WANTMESSAGE : 0);
        case WM_SETFOCUS:
            static_cast<void>(Notify(CBN_SETFOCUS));
            return 0;
        case WM_KILLFOCUS:
            if (m_dropped ? Close(CBN_SELENDCANCEL) : Notify(CBN_SELENDCANCEL))
            {
                static_cast<void>(Notify(CBN_KILLFOCUS));
            }
            return 0;
        case WM_KEYDOWN:
            OnKey(wParam);
            return 0;
        case WM_SYSKEYDOWN:
            if (wParam != VK_UP && wParam != VK_DOWN)
            {
                return Control::Handle(message, wParam, lParam);
            }
            Toggle(CBN_SELENDCANCEL);
            return 0;
        case WM_CHAR:
            OnChar(static_cast<WCHAR>(wParam));
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            if (TakeFocus())
            {
                Toggle(CBN_SELENDOK);
            }
            return 0;
        default:
            return Control::Handle(message, wParam, lParam);
        }
    }

    // The height asked for is that of the list as well; the control's own is one line's.
    void Shrink() const
    {
        constexpr int Height = 21;
        RECT rect = {};
        GetWindowRect(Window(), &rect);
        SetWindowPos(Window(), nullptr, 0, 0, rect.right - rect.left, Height,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    [[nodiscard]] bool Drop()
    {
        if (m_dropped)
        {
            return true;
        }
        m_dropped = true;
        return Notify(CBN_DROPDOWN);
    }

    // `how` tells what the choice comes to: CBN_SELENDOK or CBN_SELENDCANCEL. The selection stays either way.
    [[nodiscard]] bool Close(int how)
    {
        if (!m_dropped)
        {
            return true;
        }
        m_dropped = false;
        return Notify(how) && Notify(CBN_CLOSEUP);
    }

    void Toggle(int how) { static_cast<void>(m_dropped ? Close(how) : Drop()); }

    static bool EndsChoice(const MSG* message)
    {
        return message != nullptr && message->message == WM_KEYDOWN &&
               (message->wParam == VK_RETURN || message->wParam == VK_ESCAPE);
    }

    void OnKey(WPARAM key)
    {
        constexpr int Page = 8;
        switch (key)
        {
        case VK_F4:
            Toggle(CBN_SELENDCANCEL);
            return;
        case VK_RETURN:
            static_cast<void>(Close(CBN_SELENDOK));
            return;
        case VK_ESCAPE:
            static_cast<void>(Close(CBN_SELENDCANCEL));
            return;
        default:
            break;
        }
        int target = m_items.Target(key, Page);
        if (target >= 0)
        {
            m_items.Select(target);
            // In the list that is open, the choice goes on.
            if (m_dropped || Notify(CBN_SELENDOK))
            {
                static_cast<void>(Notify(CBN_SELCHANGE));
            }
        }
    }

    // A character chooses, and closes the list.
    void OnChar(WCHAR character)
    {
        int target = m_items.Target(character);
        if (target >= 0)
        {
            m_items.Select(target);
            if (m_dropped ? Close(CBN_SELENDOK) : Notify(CBN_SELENDOK))
            {
                static_cast<void>(Notify(CBN_SELCHANGE));
            }
        }
    }

    ListItems m_items;
    bool m_dropped = false;
};
}  // namespace

void RegisterComboBox()
{
    RegisterControl<ComboBox>(u"ComboBox");
}
}  // namespace headless

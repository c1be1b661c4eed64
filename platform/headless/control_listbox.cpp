// List boxes with one selection.
#include <algorithm>

#include "control.h"
#include "list_items.h"

namespace headless
{
namespace
{
class ListBox : public Control
{
public:
    explicit ListBox(HWND window) : Control(window), m_items((Style() & LBS_SORT) != 0) {}

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        auto text = reinterpret_cast<LPCWSTR>(lParam);
        auto index = static_cast<int>(wParam);
        switch (message)
        {
        case LB_ADDSTRING:
            return m_items.Add(text);
        case LB_INSERTSTRING:
            return m_items.Insert(index, text);
        case LB_DELETESTRING:
            return OnDelete(index);
        case LB_RESETCONTENT:
            m_items.Clear();
            m_top = 0;
            return LB_OKAY;
        case LB_GETCOUNT:
            return m_items.Count();
        case LB_GETCURSEL:
            return m_items.Selected();
        case LB_SETCURSEL:
            return SetSelection(m_items.Select(index));
        case LB_GETCARETINDEX:
            return m_items.Caret();
        case LB_GETSEL:
            return m_items.Has(index) ? m_items.Selected() == index : LB_ERR;
        case LB_GETTEXT:
            return m_items.GetText(index, reinterpret_cast<LPWSTR>(lParam));
        case LB_GETTEXTLEN:
            return m_items.GetText(index, nullptr);
        case LB_GETITEMDATA:
            return m_items.Data(index);
        case LB_SETITEMDATA:
            return m_items.SetData(index, lParam) ? TRUE : LB_ERR;
        case LB_FINDSTRING:
            return m_items.Find(index, text, false);
        case LB_FINDSTRINGEXACT:
            return m_items.Find(index, text, true);
        case LB_SELECTSTRING:
            return SetSelection(m_items.FindAndSelect(index, text));
        default:
            return HandleView(message, wParam, lParam);
        }
    }

private:
    LRESULT HandleView(UINT message, WPARAM wParam, LPARAM lParam)
    {
        switch (message)
        {
        case LB_GETTOPINDEX:
            return m_top;
        case LB_SETTOPINDEX:
            if (!m_items.Has(static_cast<int>(wParam)))
            {
                return LB_ERR;
            }
            SetTop(static_cast<int>(wParam));
            return LB_OKAY;
        case LB_GETITEMHEIGHT:
            return ItemHeight;
        case LB_GETITEMRECT:
            return GetItemRect(static_cast<int>(wParam), reinterpret_cast<LPRECT>(lParam));
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_SETFOCUS:
            return Tell(LBN_SETFOCUS);
        case WM_KILLFOCUS:
            return EndDrag() ? Tell(LBN_KILLFOCUS) : 0;
        case WM_KEYDOWN:
            return wParam == VK_SPACE ? PickCaret() : Pick(m_items.Target(wParam, std::max(1, Page() - 1)));
        case WM_CHAR:
            return wParam == ' ' ? 0 : Pick(m_items.Target(static_cast<WCHAR>(wParam)));
        case WM_LBUTTONDOWN:
            OnPress(lParam);
            return 0;
        case WM_MOUSEMOVE:
            if (m_dragging)
            {
                SetSelection(m_items.Select(ItemAt(lParam)));
            }
            return 0;
        case WM_LBUTTONUP:
            static_cast<void>(EndDrag());
            return 0;
        case WM_LBUTTONDBLCLK:
            return ItemAt(lParam) >= 0 ? Tell(LBN_DBLCLK) : 0;
        default:
            return Control::Handle(message, wParam, lParam);
        }
    }

    static constexpr int ItemHeight = 13;

    // How many items show.
    int Page() const
    {
        RECT rect = {};
        GetClientRect(Window(), &rect);
        return std::max(1, rect.bottom / ItemHeight);
    }

    LRESULT GetItemRect(int index, LPRECT rect) const
    {
        if (!m_items.Has(index))
        {
            return LB_ERR;
        }
        GetClientRect(Window(), rect);
        rect->top = (index - m_top) * ItemHeight;
        rect->bottom = rect->top + ItemHeight;
        return TRUE;
    }

    // -2 where no item is.
    int ItemAt(LPARAM lParam) const
    {
        int index = MouseY(lParam) < 0 ? -2 : m_top + MouseY(lParam) / ItemHeight;
        return m_items.Has(index) ? index : -2;
    }

    // The list's end stays at the window's, if there is enough to fill it.
    void SetTop(int index) { m_top = std::max(0, std::min(index, m_items.Count() - Page())); }

    LRESULT OnDelete(int index)
    {
        int left = m_items.Delete(index);
        SetTop(m_top);
        return left;
    }

    // Brings the item into view.
    LRESULT SetSelection(int index)
    {
        if (index >= 0)
        {
            m_top = std::min(std::max(m_top, index - Page() + 1), index);
        }
        return index;
    }

    LRESULT Tell(int code) const
    {
        if ((Style() & LBS_NOTIFY) != 0)
        {
            static_cast<void>(Notify(code));
        }
        return 0;
    }

    // A key's choice is told even if the item was selected before.
    LRESULT Pick(int index)
    {
        if (index < 0)
        {
            return 0;
        }
        SetSelection(m_items.Select(index));
        return Tell(LBN_SELCHANGE);
    }

    LRESULT PickCaret() { return m_items.Selected() == m_items.Caret() ? 0 : Pick(m_items.Caret()); }

    void OnPress(LPARAM lParam)
    {
        if (!TakeFocus())
        {
            return;
        }
        int index = ItemAt(lParam);
        if (index >= 0)
        {
            SetSelection(m_items.Select(index));
            m_dragging = true;
            SetCapture(Window());
        }
    }

    // The mouse has chosen when its button comes up, or when the focus goes before that.
    bool EndDrag()
    {
        if (!m_dragging)
        {
            return true;
        }
        m_dragging = false;
        HWND window = Window();
        if (Release())
        {
            Tell(LBN_SELCHANGE);
        }
        return IsWindow(window);
    }

    ListItems m_items;
    int m_top = 0;
    bool m_dragging = false;
};
}  // namespace

void RegisterListBox()
{
    RegisterControl<ListBox>(u"ListBox");
}
}  // namespace headless

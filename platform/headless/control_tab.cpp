// The tab control: one row of tabs, of which one is selected.
#include <algorithm>
#include <vector>

#include "commctrl.h"
#include "control.h"
#include "unicode.h"

namespace headless
{
namespace
{
// In pixels.
constexpr LONG TabHeight = 18;
constexpr LONG TabPadding = 6;
constexpr LONG CharacterWidth = 6;
constexpr LONG Edge = 2;

struct Tab
{
    std::u16string text;
    int image = -1;
    LPARAM param = 0;
};

class TabControl : public Control
{
public:
    using Control::Control;

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const int index = static_cast<int>(wParam);
        switch (message)
        {
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_LBUTTONDOWN:
            return Click({MouseX(lParam), MouseY(lParam)});
        case WM_KEYDOWN:
            return Key(wParam);
        case TCM_GETITEMCOUNT:
            return Count();
        case TCM_GETCURSEL:
        case TCM_GETCURFOCUS:
            return m_selected;
        case TCM_GETROWCOUNT:
            return m_tabs.empty() ? 0 : 1;
        case TCM_SETCURSEL:
            return Select(index);
        case TCM_SETCURFOCUS:
            Turn(index);
            return 0;
        case TCM_INSERTITEMW:
            return Insert(index, reinterpret_cast<const TCITEMW*>(lParam));
        case TCM_DELETEITEM:
            return Delete(index);
        case TCM_DELETEALLITEMS:
            m_tabs.clear();
            m_selected = -1;
            return TRUE;
        case TCM_GETITEMW:
            return Get(index, reinterpret_cast<TCITEMW*>(lParam));
        case TCM_SETITEMW:
            return Set(index, reinterpret_cast<const TCITEMW*>(lParam));
        case TCM_GETITEMRECT:
            return GetRect(index, reinterpret_cast<RECT*>(lParam));
        case TCM_ADJUSTRECT:
            return Adjust(wParam != 0, reinterpret_cast<RECT*>(lParam));
        default:
            return Control::Handle(message, wParam, lParam);
        }
    }

private:
    int Count() const { return static_cast<int>(m_tabs.size()); }
    bool Has(int index) const { return index >= 0 && index < Count(); }
    Tab& At(int index) { return m_tabs[static_cast<std::size_t>(index)]; }

    int Insert(int index, const TCITEMW* item)
    {
        if (item == nullptr || index < 0)
        {
            return -1;
        }
        index = std::min(index, Count());
        m_tabs.insert(m_tabs.begin() + index, Tab{});
        Set(index, item);
        // The first tab is selected by its coming; the selection then stays with its tab.
        m_selected = Count() == 1 ? 0 : m_selected + (index <= m_selected ? 1 : 0);
        return index;
    }

    LRESULT Delete(int index)
    {
        if (!Has(index))
        {
            return FALSE;
        }
        m_tabs.erase(m_tabs.begin() + index);
        if (index == m_selected)
        {
            m_selected = -1;
        }
        m_selected -= index < m_selected ? 1 : 0;
        return TRUE;
    }

    LRESULT Set(int index, const TCITEMW* item)
    {
        if (!Has(index) || item == nullptr)
        {
            return FALSE;
        }
        Tab& tab = At(index);
        if ((item->mask & TCIF_TEXT) != 0)
        {
            tab.text = item->pszText == nullptr ? u"" : item->pszText;
        }
        if ((item->mask & TCIF_IMAGE) != 0)
        {
            tab.image = item->iImage;
        }
        if ((item->mask & TCIF_PARAM) != 0)
        {
            tab.param = item->lParam;
        }
        return TRUE;
    }

    LRESULT Get(int index, TCITEMW* item)
    {
        if (!Has(index) || item == nullptr)
        {
            return FALSE;
        }
        const Tab& tab = At(index);
        if ((item->mask & TCIF_TEXT) != 0)
        {
            CopyText(item->pszText, static_cast<std::size_t>(std::max(item->cchTextMax, 0)), tab.text);
        }
        if ((item->mask & TCIF_IMAGE) != 0)
        {
            item->iImage = tab.image;
        }
        if ((item->mask & TCIF_PARAM) != 0)
        {
            item->lParam = tab.param;
        }
        return TRUE;
    }

    LRESULT GetRect(int index, RECT* rect) const
    {
        if (!Has(index) || rect == nullptr)
        {
            return FALSE;
        }
        LONG left = Edge;
        for (int before = 0; before < index; ++before)
        {
            left += Width(before);
        }
        *rect = {left, Edge, left + Width(index), Edge + TabHeight};
        return TRUE;
    }

    LONG Width(int index) const
    {
        const std::u16string& text = m_tabs[static_cast<std::size_t>(index)].text;
        return static_cast<LONG>(text.size()) * CharacterWidth + 2 * TabPadding;
    }

    // From the pages' place to the control's or back.
    static LRESULT Adjust(bool toControl, RECT* rect)
    {
        if (rect != nullptr)
        {
            const LONG outwards = toControl ? 1 : -1;
            rect->left -= outwards * 2 * Edge;
            rect->top -= outwards * (TabHeight + 2 * Edge);
            rect->right += outwards * 2 * Edge;
            rect->bottom += outwards * 2 * Edge;
        }
        return 0;
    }

    LRESULT Select(int index)
    {
        if (index >= Count())
        {
            return -1;
        }
        const int previous = m_selected;
        m_selected = std::max(index, -1);
        return previous;
    }

    // False if the parent's handler destroyed the control, and with it this object.
    bool Notify(UINT code, LRESULT* answer)
    {
        const HWND window = Window();
        NMHDR header = {window, static_cast<UINT_PTR>(GetDlgCtrlID(window)), code};
        *answer =
            SendMessageW(GetParent(window), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
        return IsWindow(window) != 0;
    }

    // What the user does is first asked for and then told.
    void Turn(int index)
    {
        LRESULT answer = 0;
        if (!Has(index) || index == m_selected || !Notify(TCN_SELCHANGING, &answer) || answer != 0 ||
            !Has(index))
        {
            return;
        }
        m_selected = index;
        Notify(TCN_SELCHANGE, &answer);
    }

    LRESULT Click(POINT point)
    {
        for (int index = 0; index < Count(); ++index)
        {
            RECT rect = {};
            GetRect(index, &rect);
            if (!PtInRect(&rect, point))
            {
                continue;
            }
            // Only a click on the tab that is selected already takes the focus out of the page.
            if (index == m_selected)
            {
                SetFocus(Window());
            }
            else
            {
                Turn(index);
            }
            break;
        }
        return 0;
    }

    LRESULT Key(WPARAM key)
    {
        switch (key)
        {
        case VK_LEFT:
            Turn(m_selected - 1);
            break;
        case VK_RIGHT:
            Turn(m_selected + 1);
            break;
        case VK_HOME:
            Turn(0);
            break;
        case VK_END:
            Turn(Count() - 1);
            break;
        default:
            break;
        }
        return 0;
    }

    std::vector<Tab> m_tabs;
    int m_selected = -1;
};
}  // namespace

void RegisterTabControl()
{
    RegisterControl<TabControl>(WC_TABCONTROLW);
}
}  // namespace headless

#include "list_items.h"

#include <tchar.h>

#include <algorithm>

namespace headless
{
int ListItems::Add(LPCWSTR text)
{
    if (!m_sorted)
    {
        return InsertAt(Count(), text);
    }
    auto before = [](const Item& item, LPCWSTR other) { return lstrcmpiW(item.text.c_str(), other) < 0; };
    auto place = std::lower_bound(m_items.begin(), m_items.end(), text == nullptr ? u"" : text, before);
    return InsertAt(static_cast<int>(place - m_items.begin()), text);
}

int ListItems::Insert(int index, LPCWSTR text)
{
    if (index == -1)
    {
        index = Count();
    }
    return index < 0 || index > Count() ? LB_ERR : InsertAt(index, text);
}

int ListItems::InsertAt(int index, LPCWSTR text)
{
    m_items.insert(m_items.begin() + index, Item{text == nullptr ? u"" : text});
    if (index <= m_selected)
    {
        ++m_selected;
    }
    return index;
}

int ListItems::Delete(int index)
{
    if (!Has(index))
    {
        return LB_ERR;
    }
    m_items.erase(m_items.begin() + index);
    if (index == m_selected)
    {
        m_selected = -1;
    }
    else if (index < m_selected)
    {
        --m_selected;
    }
    m_caret = std::max(0, std::min(m_caret, Count() - 1));
    return Count();
}

void ListItems::Clear()
{
    m_items.clear();
    m_selected = -1;
    m_caret = 0;
}

int ListItems::Select(int index)
{
    if (!Has(index))
    {
        if (index == -1)
        {
            m_selected = -1;
        }
        return LB_ERR;
    }
    m_selected = m_caret = index;
    return index;
}

int ListItems::GetText(int index, LPWSTR buffer) const
{
    if (!Has(index))
    {
        return LB_ERR;
    }
    const std::u16string& text = m_items[index].text;
    if (buffer != nullptr)
    {
        buffer[text.copy(buffer, text.size())] = u'\0';
    }
    return static_cast<int>(text.size());
}

bool ListItems::SetData(int index, LPARAM data)
{
    if (!Has(index))
    {
        return false;
    }
    m_items[index].data = data;
    return true;
}

int ListItems::Find(int after, LPCWSTR text, bool whole) const
{
    if (text == nullptr)
    {
        return LB_ERR;
    }
    std::size_t length = whole ? std::u16string::npos : std::u16string_view(text).size();
    int first = Has(after) ? after + 1 : 0;
    for (int step = 0; step < Count(); ++step)
    {
        int index = (first + step) % Count();
        if (_tcsnicmp(m_items[index].text.c_str(), text, length) == 0)
        {
            return index;
        }
    }
    return LB_ERR;
}

int ListItems::FindAndSelect(int after, LPCWSTR text)
{
    int found = Find(after, text, false);
    return found == LB_ERR ? LB_ERR : Select(found);
}

int ListItems::Target(WPARAM key, int page) const
{
    int target = m_caret;
    switch (key)
    {
    case VK_UP:
    case VK_LEFT:
        --target;
        break;
    case VK_DOWN:
    case VK_RIGHT:
        ++target;
        break;
    case VK_PRIOR:
        target -= page;
        break;
    case VK_NEXT:
        target += page;
        break;
    case VK_HOME:
        target = 0;
        break;
    case VK_END:
        target = Count() - 1;
        break;
    default:
        return -1;
    }
    if (m_selected < 0 && Count() > 0)
    {
        return m_caret;
    }
    return std::min(std::max(target, 0), Count() - 1);
}

int ListItems::Target(WCHAR typed) const
{
    const WCHAR text[] = {typed, u'\0'};
    return typed < u' ' ? -1 : Find(m_caret, text, false);
}
}  // namespace headless

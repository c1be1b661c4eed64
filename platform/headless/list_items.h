// What a list box and the list of a combo box hold: items, the selected one, and the caret, which stays where
// it was when nothing is selected. Indices are as in the messages: -1 is none, and LB_ERR as a result.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "windows.h"

namespace headless
{
class ListItems
{
public:
    explicit ListItems(bool sorted) : m_sorted(sorted) {}

    int Count() const { return static_cast<int>(m_items.size()); }
    int Selected() const { return m_selected; }
    int Caret() const { return m_caret; }
    bool Has(int index) const { return index >= 0 && index < Count(); }

    // In its place if sorted, else last. The index.
    int Add(LPCWSTR text);
    // -1 is the end.
    int Insert(int index, LPCWSTR text);
    // The number of items left.
    int Delete(int index);
    void Clear();

    // -1 drops the selection, and gives -1 like an index that no item has, which changes nothing.
    int Select(int index);
    void DropSelection() { m_selected = -1; }

    // The characters without the terminator. The buffer, if any, has room.
    int GetText(int index, LPWSTR buffer) const;
    std::u16string_view Text(int index) const
    {
        return Has(index) ? m_items[index].text : std::u16string_view();
    }
    LRESULT Data(int index) const { return Has(index) ? m_items[index].data : LB_ERR; }
    bool SetData(int index, LPARAM data);

    // The first match from behind `after` on, round to `after` itself. Case does not count.
    int Find(int after, LPCWSTR text, bool whole) const;
    // Finds by prefix and selects; without a match the selection stays.
    int FindAndSelect(int after, LPCWSTR text);

    // Where an arrow key and its like goes; -1 if the key is none of these or the list is empty. While
    // nothing is selected, each goes to the caret.
    int Target(WPARAM key, int page) const;
    // The next item that begins with a typed character, -1 for none.
    int Target(WCHAR typed) const;

private:
    struct Item
    {
        std::u16string text;
        LPARAM data = 0;
    };

    int InsertAt(int index, LPCWSTR text);

    std::vector<Item> m_items;
    bool m_sorted;
    int m_selected = -1;
    int m_caret = 0;
};
}  // namespace headless

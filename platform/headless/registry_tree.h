// The registry's contents: keys, subkeys, values, and the handles to them. Knows nothing of access rights.
#pragma once

#include <cstddef>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "winreg.h"

namespace headless::registry
{
constexpr std::size_t MaxKeyName = 255;
constexpr std::size_t MaxValueName = 16383;

// A name as it is compared and ordered: in small letters.
class FoldedName
{
public:
    explicit FoldedName(std::u16string_view name);
    operator std::u16string_view() const { return m_name; }

private:
    char16_t m_short[64];
    std::u16string m_long;
    std::u16string_view m_name;
};

// Items in the order of their folded names, which is the order of enumeration. Walking them by index costs a
// step each, because the place of the last look is kept; a change of the set forgets it.
template <class Item>
class NamedItems
{
    using Map = std::map<std::u16string, Item, std::less<>>;

public:
    std::size_t Size() const { return m_items.size(); }
    auto begin() { return m_items.begin(); }
    auto end() { return m_items.end(); }

    Item* Find(std::u16string_view folded)
    {
        auto found = m_items.find(folded);
        return found == m_items.end() ? nullptr : &found->second;
    }

    Item& Add(std::u16string_view folded, Item item)
    {
        m_cursorValid = false;
        return m_items.insert_or_assign(std::u16string(folded), std::move(item)).first->second;
    }

    bool Remove(std::u16string_view folded)
    {
        auto found = m_items.find(folded);
        if (found == m_items.end())
        {
            return false;
        }
        m_cursorValid = false;
        m_items.erase(found);
        return true;
    }

    void Clear()
    {
        m_cursorValid = false;
        m_items.clear();
    }

    Item* At(std::size_t index)
    {
        if (index >= m_items.size())
        {
            return nullptr;
        }
        std::size_t fromEnd = m_items.size() - index;
        std::size_t fromCursor = index > m_position ? index - m_position : m_position - index;
        if (!m_cursorValid || index < fromCursor)
        {
            m_cursor = m_items.begin();
            m_position = 0;
        }
        if (fromEnd < (index > m_position ? index - m_position : m_position - index))
        {
            m_cursor = m_items.end();
            m_position = m_items.size();
        }
        std::advance(m_cursor, static_cast<std::ptrdiff_t>(index) - static_cast<std::ptrdiff_t>(m_position));
        m_position = index;
        m_cursorValid = true;
        return &m_cursor->second;
    }

private:
    Map m_items;
    typename Map::iterator m_cursor;
    std::size_t m_position = 0;
    bool m_cursorValid = false;
};

struct Value
{
    std::u16string name;
    DWORD type;
    std::vector<BYTE> data;
};

struct Key : std::enable_shared_from_this<Key>
{
    Key(std::u16string_view keyName, Key* parentKey) : name(keyName), parent(parentKey) {}
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() { Orphan(); }

    std::u16string Path() const;
    // The key of that relative path, or null. Empty components are skipped.
    Key* Open(std::u16string_view path);
    // The same, with every missing key of the path made; *created tells whether the last one was.
    Key* Create(std::u16string_view path, bool* created);
    void DeleteSubKeys();
    // Takes the key out of its parent. Open handles keep the object, which has no parent then.
    void Delete();
    void Touch();

    std::u16string name;
    Key* parent;
    bool deleted = false;
    ULONGLONG lastWrite = 0;
    NamedItems<std::shared_ptr<Key>> subKeys;
    NamedItems<Value> values;

private:
    void Orphan();
};

// The error for a path that no key can have.
LSTATUS CheckPath(std::u16string_view path);

// A key that a handle stands for.
struct OpenKey
{
    std::shared_ptr<Key> key;
    REGSAM access = 0;
};

bool IsPredefined(HKEY handle);
// Null for a handle that is not open.
const OpenKey* Lookup(HKEY handle);
HKEY AddHandle(Key& key, REGSAM access);
bool RemoveHandle(HKEY handle);
}  // namespace headless::registry

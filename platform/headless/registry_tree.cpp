#include "registry_tree.h"

#include <algorithm>
#include <clocale>
#include <ctime>
#include <cwctype>

#include "headless.h"
#include "winerror.h"

namespace headless::registry
{
namespace
{
char16_t FoldWide(char16_t character)
{
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    // The two whose small letter is a plain one, which the registry keeps apart.
    if (locale == nullptr || character == u'\u0130' || character == u'\u1E9E')
    {
        return character;
    }
    wint_t folded = towlower_l(character, locale);
    return folded <= 0xFFFF ? static_cast<char16_t>(folded) : character;
}

char16_t Fold(char16_t character)
{
    if (character < 0x80)
    {
        return character >= u'A' && character <= u'Z' ? static_cast<char16_t>(character + 32) : character;
    }
    return FoldWide(character);
}

// Calls visit with each component until it gives false.
template <class Visit>
void ForEachComponent(std::u16string_view path, Visit visit)
{
    while (!path.empty())
    {
        std::size_t length = std::min(path.find(u'\\'), path.size());
        if (length > 0 && !visit(path.substr(0, length)))
        {
            return;
        }
        path.remove_prefix(std::min(length + 1, path.size()));
    }
}

struct Store
{
    static constexpr std::size_t RootCount = 4;
    static constexpr std::size_t NoSlot = SIZE_MAX;
    static constexpr unsigned SlotBits = 24;

    struct Slot
    {
        OpenKey open;
        std::size_t generation = 0;
        std::size_t nextFree = NoSlot;
    };

    Store() { Fill(); }

    // Never destroyed: the program's own statics may use the registry while they go.
    static Store& Get()
    {
        static auto& store = *new Store;
        return store;
    }

    void Fill()
    {
        static constexpr std::u16string_view names[RootCount] = {u"HKEY_CLASSES_ROOT", u"HKEY_CURRENT_USER",
                                                                 u"HKEY_LOCAL_MACHINE", u"HKEY_USERS"};
        for (std::size_t i = 0; i < RootCount; ++i)
        {
            roots[i] = {std::make_shared<Key>(names[i], nullptr), KEY_ALL_ACCESS};
        }
        bool created = false;
        roots[1].key->Create(u"Software", &created);
        roots[2].key->Create(u"SOFTWARE", &created);
        roots[2].key->Create(u"System", &created);
    }

    // Handles carry a generation, so that a closed one stays closed when its slot is used again. As on
    // Windows they are multiples of four.
    Slot* Find(HKEY handle)
    {
        auto number = reinterpret_cast<std::size_t>(handle);
        std::size_t index = (number >> 2 & ((std::size_t{1} << SlotBits) - 1)) - 1;
        bool valid = (number & 3) == 0 && index < slots.size() && slots[index].open.key != nullptr &&
                     slots[index].generation == number >> (SlotBits + 2);
        return valid ? &slots[index] : nullptr;
    }

    void Free(Slot& slot)
    {
        slot.open = {};
        slot.generation = (slot.generation + 1) & 0xFFFFF;
        slot.nextFree = firstFree;
        firstFree = static_cast<std::size_t>(&slot - slots.data());
        --openCount;
    }

    OpenKey roots[RootCount];
    std::vector<Slot> slots;
    std::size_t firstFree = NoSlot;
    std::size_t openCount = 0;
};

std::size_t RootIndex(HKEY handle)
{
    return reinterpret_cast<std::size_t>(handle) - reinterpret_cast<std::size_t>(HKEY_CLASSES_ROOT);
}
}  // namespace

FoldedName::FoldedName(std::u16string_view name)
{
    char16_t* target = m_short;
    if (name.size() > std::size(m_short))
    {
        m_long.resize(name.size());
        target = m_long.data();
    }
    std::transform(name.begin(), name.end(), target, Fold);
    m_name = {target, name.size()};
}

std::u16string Key::Path() const
{
    return parent == nullptr ? name : parent->Path() + u'\\' + name;
}

Key* Key::Open(std::u16string_view path)
{
    Key* key = this;
    ForEachComponent(path,
                     [&key](std::u16string_view component)
                     {
                         std::shared_ptr<Key>* found = key->subKeys.Find(FoldedName(component));
                         key = found == nullptr ? nullptr : found->get();
                         return key != nullptr;
                     });
    return key;
}

Key* Key::Create(std::u16string_view path, bool* created)
{
    *created = false;
    Key* key = this;
    ForEachComponent(path,
                     [&key, created](std::u16string_view component)
                     {
                         FoldedName folded(component);
                         std::shared_ptr<Key>* found = key->subKeys.Find(folded);
                         *created = found == nullptr;
                         if (*created)
                         {
                             key->Touch();
                             found = &key->subKeys.Add(folded, std::make_shared<Key>(component, key));
                             (*found)->Touch();
                         }
                         key = found->get();
                         return true;
                     });
    return key;
}

void Key::Orphan()
{
    for (auto& [folded, subKey] : subKeys)
    {
        subKey->parent = nullptr;
        subKey->deleted = true;
        subKey->DeleteSubKeys();
    }
}

void Key::DeleteSubKeys()
{
    Orphan();
    subKeys.Clear();
    Touch();
}

void Key::Delete()
{
    std::shared_ptr<Key> self = shared_from_this();
    DeleteSubKeys();
    values.Clear();
    deleted = true;
    parent->Touch();
    parent->subKeys.Remove(FoldedName(name));
    parent = nullptr;
}

void Key::Touch()
{
    constexpr ULONGLONG ticksPerSecond = 10'000'000;
    constexpr ULONGLONG secondsFrom1601To1970 = 11'644'473'600;
    timespec now = {};
    clock_gettime(CLOCK_REALTIME_COARSE, &now);
    lastWrite = (static_cast<ULONGLONG>(now.tv_sec) + secondsFrom1601To1970) * ticksPerSecond +
                static_cast<ULONGLONG>(now.tv_nsec) / 100;
}

LSTATUS CheckPath(std::u16string_view path)
{
    if (path.starts_with(u'\\'))
    {
        return ERROR_BAD_PATHNAME;
    }
    bool fits = true;
    ForEachComponent(
        path, [&fits](std::u16string_view component) { return fits = component.size() <= MaxKeyName; });
    return fits ? ERROR_SUCCESS : ERROR_INVALID_PARAMETER;
}

bool IsPredefined(HKEY handle)
{
    return RootIndex(handle) < Store::RootCount;
}

const OpenKey* Lookup(HKEY handle)
{
    Store& store = Store::Get();
    if (IsPredefined(handle))
    {
        return &store.roots[RootIndex(handle)];
    }
    Store::Slot* slot = store.Find(handle);
    return slot == nullptr ? nullptr : &slot->open;
}

HKEY AddHandle(Key& key, REGSAM access)
{
    Store& store = Store::Get();
    std::size_t index = store.firstFree;
    if (index == Store::NoSlot)
    {
        index = store.slots.size();
        store.slots.emplace_back();
    }
    else
    {
        store.firstFree = store.slots[index].nextFree;
    }
    Store::Slot& slot = store.slots[index];
    slot.open = {key.shared_from_this(), access};
    ++store.openCount;
    return reinterpret_cast<HKEY>((slot.generation << Store::SlotBits | (index + 1)) << 2);
}

bool RemoveHandle(HKEY handle)
{
    Store& store = Store::Get();
    Store::Slot* slot = store.Find(handle);
    if (slot != nullptr)
    {
        store.Free(*slot);
    }
    return slot != nullptr;
}
}  // namespace headless::registry

namespace headless
{
std::size_t OpenKeyCount()
{
    return registry::Store::Get().openCount;
}

void ResetRegistry()
{
    registry::Store& store = registry::Store::Get();
    for (registry::Store::Slot& slot : store.slots)
    {
        if (slot.open.key != nullptr)
        {
            store.Free(slot);
        }
    }
    store.Fill();
}
}  // namespace headless

// The compiled resources: the .res file that the build links in as bytes.
#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

#include "tchar.h"
#include "unicode.h"
#include "windows.h"

// Absent from programs without resources.
extern "C" const unsigned char headless_resources_begin[] __attribute__((weak));
extern "C" const unsigned char headless_resources_end[] __attribute__((weak));

namespace
{
// The name or type of a resource: a number, or a text that the file holds.
struct ResourceId
{
    WORD number = 0;
    std::u16string_view text;

    bool operator==(const ResourceId& other) const
    {
        return number == other.number && text.size() == other.text.size() &&
               _tcsnicmp(text.data(), other.text.data(), text.size()) == 0;
    }
};

struct Resource
{
    ResourceId type;
    ResourceId name;
    const unsigned char* data;
    DWORD size;
};

// Reads the little-endian file; every step stays within it, and a reader that ran out gives zeros.
class Reader
{
public:
    Reader(const unsigned char* begin, const unsigned char* end) : m_begin(begin), m_at(begin), m_end(end) {}

    std::size_t Left() const { return static_cast<std::size_t>(m_end - m_at); }
    const unsigned char* At() const { return m_at; }
    void Skip(std::size_t size) { m_at += std::min(size, Left()); }
    void Align() { Skip((4 - static_cast<std::size_t>(m_at - m_begin) % 4) % 4); }

    template <class Number>
    Number Read()
    {
        Number number = 0;
        if (Left() >= sizeof(number))
        {
            std::memcpy(&number, m_at, sizeof(number));
        }
        Skip(sizeof(number));
        return number;
    }

    ResourceId ReadId()
    {
        const unsigned char* start = m_at;
        WORD first = Read<WORD>();
        if (first == 0xFFFF)
        {
            return {Read<WORD>(), {}};
        }
        std::size_t length = 0;
        for (WORD unit = first; unit != 0; unit = Read<WORD>())
        {
            ++length;
        }
        return {0, {reinterpret_cast<const char16_t*>(start), length}};
    }

private:
    const unsigned char* m_begin;
    const unsigned char* m_at;
    const unsigned char* m_end;
};

std::vector<Resource> ReadResources()
{
    std::vector<Resource> resources;
    Reader reader(headless_resources_begin, headless_resources_end);
    while (reader.Left() > 0)
    {
        const unsigned char* start = reader.At();
        auto size = reader.Read<DWORD>();
        auto headerSize = reader.Read<DWORD>();
        ResourceId type = reader.ReadId();
        ResourceId name = reader.ReadId();
        auto headerRead = static_cast<std::size_t>(reader.At() - start);
        reader.Skip(std::max<std::size_t>(headerSize, headerRead) - headerRead);
        if (size > reader.Left())
        {
            break;
        }
        resources.push_back({type, name, reader.At(), size});
        reader.Skip(size);
        reader.Align();
    }
    return resources;
}

const std::vector<Resource>& Resources()
{
    static const auto& resources = *new std::vector<Resource>(ReadResources());
    return resources;
}

// A caller's id: MAKEINTRESOURCE, "#number", or a text.
ResourceId MakeId(LPCWSTR id)
{
    if (IS_INTRESOURCE(id))
    {
        return {static_cast<WORD>(reinterpret_cast<ULONG_PTR>(id)), {}};
    }
    if (id[0] == u'#')
    {
        return {static_cast<WORD>(_tcstoul(id + 1, nullptr, 10)), {}};
    }
    return {0, id};
}

const Resource* Find(LPCWSTR name, LPCWSTR type)
{
    DWORD error = Resources().empty() ? ERROR_RESOURCE_DATA_NOT_FOUND : ERROR_RESOURCE_TYPE_NOT_FOUND;
    ResourceId wantedName = MakeId(name);
    ResourceId wantedType = MakeId(type);
    for (const Resource& resource : Resources())
    {
        if (resource.type == wantedType)
        {
            if (resource.name == wantedName)
            {
                return &resource;
            }
            error = ERROR_RESOURCE_NAME_NOT_FOUND;
        }
    }
    SetLastError(error);
    return nullptr;
}

// Strings lie in blocks of sixteen, each with its length before it.
std::u16string_view FindString(UINT id)
{
    const Resource* block = Find(MAKEINTRESOURCEW(id / 16 + 1), reinterpret_cast<LPCWSTR>(RT_STRING));
    if (block == nullptr)
    {
        return {};
    }
    Reader reader(block->data, block->data + block->size);
    std::size_t length = reader.Read<WORD>();
    for (UINT i = 0; i < id % 16; ++i)
    {
        reader.Skip(length * sizeof(WCHAR));
        length = reader.Read<WORD>();
    }
    return {reinterpret_cast<const char16_t*>(reader.At()), std::min(length, reader.Left() / sizeof(WCHAR))};
}
}  // namespace

HRSRC WINAPI FindResourceW(HMODULE, LPCWSTR name, LPCWSTR type)
{
    return reinterpret_cast<HRSRC>(const_cast<Resource*>(Find(name, type)));
}

HGLOBAL WINAPI LoadResource(HMODULE, HRSRC resource)
{
    return resource == nullptr
               ? nullptr
               : const_cast<unsigned char*>(reinterpret_cast<const Resource*>(resource)->data);
}

LPVOID WINAPI LockResource(HGLOBAL data)
{
    return data;
}

int WINAPI LoadStringW(HINSTANCE, UINT id, LPWSTR buffer, int size)
{
    std::u16string_view text = FindString(id);
    if (size == 0)
    {
        // Asks for the text itself, which has no terminator.
        const char16_t* start = text.data();
        std::memcpy(buffer, &start, sizeof(start));
        return static_cast<int>(text.size());
    }
    return static_cast<int>(headless::CopyText(buffer, static_cast<std::size_t>(size), text));
}

// An icon is a token: nothing here paints. The system's own icons, asked for without a module, always exist.
HICON WINAPI LoadIconW(HINSTANCE instance, LPCWSTR name)
{
    if (instance == nullptr)
    {
        return reinterpret_cast<HICON>(const_cast<WCHAR*>(name));
    }
    return reinterpret_cast<HICON>(
        const_cast<Resource*>(Find(name, reinterpret_cast<LPCWSTR>(RT_GROUP_ICON))));
}

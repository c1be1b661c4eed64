// The registry functions that work on values. What they do in the corners is what Wine's do.
#include <cstring>

#include "registry_call.h"

// Null in a build without the address sanitizer.
extern "C" int __asan_address_is_poisoned(const volatile void* address) __attribute__((weak));

using namespace headless;
using namespace headless::registry;

namespace
{
constexpr auto Registry = FaultPoint::Kind::Registry;

bool IsText(DWORD type)
{
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

bool EndsInNul(const BYTE* data, std::size_t size)
{
    return size >= sizeof(WCHAR) && data[size - 2] == 0 && data[size - 1] == 0;
}

// Hands data and size out as both readers do. Data that does not fit leaves the buffer alone; text that was
// stored without a terminator gets one when there is room, which the size does not count.
LSTATUS ReadData(const Value& value, LPBYTE data, LPDWORD size)
{
    if (size == nullptr)
    {
        return ERROR_SUCCESS;
    }
    std::size_t stored = value.data.size();
    std::size_t room = *size;
    *size = static_cast<DWORD>(stored);
    if (data == nullptr)
    {
        return ERROR_SUCCESS;
    }
    if (room < stored)
    {
        return ERROR_MORE_DATA;
    }
    if (stored > 0)
    {
        std::memcpy(data, value.data.data(), stored);
        if (IsText(value.type) && room - stored >= sizeof(WCHAR) && !EndsInNul(data, stored))
        {
            std::memset(data + stored, 0, sizeof(WCHAR));
        }
    }
    return ERROR_SUCCESS;
}

// Windows stores the terminator that follows a text when the caller did not count it in, and so looks one
// character past the data that it was given. Where a sanitizer knows that to be nobody's, nothing follows.
__attribute__((no_sanitize("address"))) bool UncountedNulFollows(const BYTE* data, DWORD size)
{
    const BYTE* next = data + size;
    if (__asan_address_is_poisoned != nullptr &&
        (__asan_address_is_poisoned(next) != 0 || __asan_address_is_poisoned(next + 1) != 0))
    {
        return false;
    }
    return next[0] == 0 && next[1] == 0;
}

LSTATUS SetValue(HKEY handle, std::u16string_view name, DWORD type, const BYTE* data, DWORD size)
{
    Key* key = nullptr;
    if (LSTATUS status = Resolve(handle, KEY_SET_VALUE, &key); status != ERROR_SUCCESS)
    {
        return status;
    }
    if (name.size() > MaxValueName)
    {
        return ERROR_INVALID_PARAMETER;
    }
    if (data == nullptr && size > 0)
    {
        return ERROR_NOACCESS;
    }
    bool addNul = IsText(type) && size > 0 && size % sizeof(WCHAR) == 0 && !EndsInNul(data, size) &&
                  UncountedNulFollows(data, size);
    FoldedName folded(name);
    Value* value = key->values.Find(folded);
    if (value == nullptr)
    {
        value = &key->values.Add(folded, Value{std::u16string(name), type, {}});
    }
    value->type = type;
    value->data.assign(data, data + size);
    value->data.resize(size + (addNul ? sizeof(WCHAR) : 0));
    key->Touch();
    return ERROR_SUCCESS;
}

LSTATUS EnumValue(HKEY handle, DWORD index, LPWSTR name, LPDWORD nameLength, LPDWORD type, LPBYTE data,
                  LPDWORD size)
{
    Key* key = nullptr;
    if (LSTATUS status = Resolve(handle, KEY_QUERY_VALUE, &key); status != ERROR_SUCCESS)
    {
        return status;
    }
    const Value* value = key->values.At(index);
    if (value == nullptr)
    {
        return ERROR_NO_MORE_ITEMS;
    }
    StoreNumber(type, value->type);
    if (value->name.size() >= *nameLength)
    {
        StoreNumber(size, value->data.size());
        return ERROR_MORE_DATA;
    }
    CopyName(name, value->name);
    *nameLength = static_cast<DWORD>(value->name.size());
    return ReadData(*value, data, size);
}
}  // namespace

LSTATUS WINAPI RegQueryValueExW(HKEY handle, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                                LPDWORD size)
{
    static FaultPoint point("RegQueryValueExW", Registry);
    return Call(point, {handle, nullptr, name},
                [&]() -> LSTATUS
                {
                    Key* key = nullptr;
                    if (reserved != nullptr || (data != nullptr && size == nullptr))
                    {
                        return ERROR_INVALID_PARAMETER;
                    }
                    if (LSTATUS status = Resolve(handle, KEY_QUERY_VALUE, &key); status != ERROR_SUCCESS)
                    {
                        return status;
                    }
                    const Value* value = key->values.Find(FoldedName(View(name)));
                    if (value == nullptr)
                    {
                        return ERROR_FILE_NOT_FOUND;
                    }
                    StoreNumber(type, value->type);
                    return ReadData(*value, data, size);
                });
}

LSTATUS WINAPI RegSetValueExW(HKEY key, LPCWSTR name, DWORD, DWORD type, const BYTE* data, DWORD size)
{
    static FaultPoint point("RegSetValueExW", Registry);
    return Call(point, {key, nullptr, name, type, data, size},
                [&] { return SetValue(key, View(name), type, data, size); });
}

LSTATUS WINAPI RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameLength, LPDWORD reserved,
                             LPDWORD type, LPBYTE data, LPDWORD size)
{
    static FaultPoint point("RegEnumValueW", Registry);
    return Call(point, {key},
                [&]
                {
                    bool valid = name != nullptr && nameLength != nullptr && reserved == nullptr &&
                                 (data == nullptr || size != nullptr);
                    return valid ? EnumValue(key, index, name, nameLength, type, data, size)
                                 : ERROR_INVALID_PARAMETER;
                });
}

LSTATUS WINAPI RegDeleteValueW(HKEY handle, LPCWSTR name)
{
    static FaultPoint point("RegDeleteValueW", Registry);
    return Call(point, {handle, nullptr, name},
                [&]() -> LSTATUS
                {
                    Key* key = nullptr;
                    if (LSTATUS status = Resolve(handle, KEY_SET_VALUE, &key); status != ERROR_SUCCESS)
                    {
                        return status;
                    }
                    if (!key->values.Remove(FoldedName(View(name))))
                    {
                        return ERROR_FILE_NOT_FOUND;
                    }
                    key->Touch();
                    return ERROR_SUCCESS;
                });
}

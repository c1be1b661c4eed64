// The registry functions that work on keys. What they do in the corners is what Wine's do; the rights that a
// handle needs are those that Windows documents.
#include <algorithm>
#include <utility>

#include "registry_call.h"

using namespace headless;
using namespace headless::registry;

namespace
{
constexpr auto Registry = FaultPoint::Kind::Registry;

REGSAM MapAccess(REGSAM access)
{
    constexpr std::pair<REGSAM, REGSAM> generics[] = {{GENERIC_READ, KEY_READ},
                                                      {GENERIC_WRITE, KEY_WRITE},
                                                      {GENERIC_EXECUTE, KEY_EXECUTE},
                                                      {GENERIC_ALL, KEY_ALL_ACCESS},
                                                      {MAXIMUM_ALLOWED, KEY_ALL_ACCESS}};
    for (auto [generic, rights] : generics)
    {
        access |= (access & generic) != 0 ? rights : 0;
    }
    return access & KEY_ALL_ACCESS;
}

// Both ways to a key check the key's own security, which everybody passes here, not the parent handle's
// rights.
LSTATUS ResolvePath(HKEY parent, LPCWSTR path, Key** key)
{
    LSTATUS status = Resolve(parent, 0, key);
    return status == ERROR_SUCCESS ? CheckPath(View(path)) : status;
}

LSTATUS Open(HKEY parent, LPCWSTR path, REGSAM access, PHKEY result)
{
    Key* key = nullptr;
    LSTATUS status = ResolvePath(parent, path, &key);
    if (status != ERROR_SUCCESS)
    {
        return status;
    }
    if (IsPredefined(parent) && View(path).empty())
    {
        *result = parent;
        return ERROR_SUCCESS;
    }
    key = key->Open(View(path));
    if (key == nullptr)
    {
        return ERROR_FILE_NOT_FOUND;
    }
    *result = AddHandle(*key, MapAccess(access));
    return ERROR_SUCCESS;
}

LSTATUS Create(HKEY parent, LPCWSTR path, REGSAM access, PHKEY result, LPDWORD disposition)
{
    Key* key = nullptr;
    LSTATUS status = ResolvePath(parent, path, &key);
    if (status != ERROR_SUCCESS)
    {
        return status;
    }
    bool created = false;
    key = key->Create(View(path), &created);
    *result = AddHandle(*key, MapAccess(access));
    StoreNumber(disposition, created ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY);
    return ERROR_SUCCESS;
}

LSTATUS Close(HKEY key)
{
    return IsPredefined(key) || RemoveHandle(key) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

LSTATUS DeleteKey(HKEY parent, LPCWSTR path, bool withSubKeys)
{
    Key* key = nullptr;
    LSTATUS status = ResolvePath(parent, path, &key);
    if (status != ERROR_SUCCESS)
    {
        return status;
    }
    key = key->Open(View(path));
    if (key == nullptr)
    {
        return ERROR_FILE_NOT_FOUND;
    }
    if (key->parent == nullptr || (!withSubKeys && key->subKeys.Size() > 0))
    {
        return ERROR_ACCESS_DENIED;
    }
    key->Delete();
    return ERROR_SUCCESS;
}

// Windows documents DELETE as a right that emptying a key needs, but asks for it on the subkeys only, which
// it opens itself; a handle opened for reading and writing is enough there, and here.
LSTATUS EmptyKey(HKEY handle)
{
    Key* key = nullptr;
    LSTATUS status = Resolve(handle, KEY_ENUMERATE_SUB_KEYS, &key);
    if (status != ERROR_SUCCESS)
    {
        return status;
    }
    key->DeleteSubKeys();
    status = Resolve(handle, KEY_QUERY_VALUE | KEY_SET_VALUE, &key);
    if (status == ERROR_SUCCESS)
    {
        key->values.Clear();
    }
    return status;
}

void StoreInfo(Key& key, LPDWORD maxSubKeyLength, LPDWORD maxValueNameLength, LPDWORD maxValueSize)
{
    std::size_t longestSubKey = 0;
    for (auto& [folded, subKey] : key.subKeys)
    {
        longestSubKey = std::max(longestSubKey, subKey->name.size());
    }
    std::size_t longestName = 0;
    std::size_t largestData = 0;
    for (auto& [folded, value] : key.values)
    {
        longestName = std::max(longestName, value.name.size());
        largestData = std::max(largestData, value.data.size());
    }
    StoreNumber(maxSubKeyLength, longestSubKey);
    StoreNumber(maxValueNameLength, longestName);
    StoreNumber(maxValueSize, largestData);
}

// Keys have no class.
void StoreClass(LPWSTR className, LPDWORD classLength)
{
    if (className != nullptr && classLength != nullptr && *classLength > 0)
    {
        *className = u'\0';
    }
    StoreNumber(classLength, 0);
}
}  // namespace

LSTATUS WINAPI RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD, REGSAM access, PHKEY result)
{
    static FaultPoint point("RegOpenKeyExW", Registry);
    if (result != nullptr)
    {
        *result = nullptr;
    }
    return Call(point, {key, subKey},
                [&]
                { return result == nullptr ? ERROR_INVALID_PARAMETER : Open(key, subKey, access, result); });
}

LSTATUS WINAPI RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR, DWORD, REGSAM access,
                               const LPSECURITY_ATTRIBUTES, PHKEY result, LPDWORD disposition)
{
    static FaultPoint point("RegCreateKeyExW", Registry);
    if (result != nullptr)
    {
        *result = nullptr;
    }
    return Call(point, {key, subKey},
                [&]
                {
                    return result == nullptr || reserved != 0
                               ? ERROR_INVALID_PARAMETER
                               : Create(key, subKey, access, result, disposition);
                });
}

LSTATUS WINAPI RegCloseKey(HKEY key)
{
    static FaultPoint point("RegCloseKey", Registry);
    LSTATUS closed = ERROR_SUCCESS;
    LSTATUS status = Call(point, {key}, [&] { return closed = Close(key); });
    if (status != ERROR_SUCCESS && closed == ERROR_SUCCESS)
    {
        // An armed fault. A key that stayed open would be taken for a leak of the caller's.
        Close(key);
    }
    return status;
}

LSTATUS WINAPI RegQueryInfoKeyW(HKEY handle, LPWSTR className, LPDWORD classLength, LPDWORD reserved,
                                LPDWORD subKeys, LPDWORD maxSubKeyLength, LPDWORD maxClassLength,
                                LPDWORD values, LPDWORD maxValueNameLength, LPDWORD maxValueSize,
                                LPDWORD securityDescriptorSize, PFILETIME lastWriteTime)
{
    static FaultPoint point("RegQueryInfoKeyW", Registry);
    return Call(
        point, {handle},
        [&]() -> LSTATUS
        {
            Key* key = nullptr;
            if (reserved != nullptr || (className != nullptr && classLength == nullptr))
            {
                return ERROR_INVALID_PARAMETER;
            }
            if (LSTATUS status = Resolve(handle, KEY_QUERY_VALUE, &key); status != ERROR_SUCCESS)
            {
                return status;
            }
            StoreClass(className, classLength);
            StoreNumber(subKeys, key->subKeys.Size());
            StoreNumber(maxClassLength, 0);
            StoreNumber(values, key->values.Size());
            StoreNumber(securityDescriptorSize, 0);
            StoreTime(lastWriteTime, key->lastWrite);
            if (maxSubKeyLength != nullptr || maxValueNameLength != nullptr || maxValueSize != nullptr)
            {
                StoreInfo(*key, maxSubKeyLength, maxValueNameLength, maxValueSize);
            }
            return ERROR_SUCCESS;
        });
}

LSTATUS WINAPI RegEnumKeyExW(HKEY handle, DWORD index, LPWSTR name, LPDWORD nameLength, LPDWORD reserved,
                             LPWSTR className, LPDWORD classLength, PFILETIME lastWriteTime)
{
    static FaultPoint point("RegEnumKeyExW", Registry);
    return Call(point, {handle},
                [&]() -> LSTATUS
                {
                    Key* key = nullptr;
                    if (name == nullptr || nameLength == nullptr || reserved != nullptr)
                    {
                        return ERROR_INVALID_PARAMETER;
                    }
                    if (LSTATUS status = Resolve(handle, KEY_ENUMERATE_SUB_KEYS, &key);
                        status != ERROR_SUCCESS)
                    {
                        return status;
                    }
                    std::shared_ptr<Key>* subKey = key->subKeys.At(index);
                    if (subKey == nullptr)
                    {
                        return ERROR_NO_MORE_ITEMS;
                    }
                    if ((*subKey)->name.size() >= *nameLength)
                    {
                        return ERROR_MORE_DATA;
                    }
                    CopyName(name, (*subKey)->name);
                    *nameLength = static_cast<DWORD>((*subKey)->name.size());
                    StoreClass(className, classLength);
                    StoreTime(lastWriteTime, (*subKey)->lastWrite);
                    return ERROR_SUCCESS;
                });
}

LSTATUS WINAPI RegDeleteKeyW(HKEY key, LPCWSTR subKey)
{
    static FaultPoint point("RegDeleteKeyW", Registry);
    return Call(point, {key, subKey},
                [&] { return subKey == nullptr ? ERROR_INVALID_PARAMETER : DeleteKey(key, subKey, false); });
}

LSTATUS WINAPI RegDeleteTreeW(HKEY key, LPCWSTR subKey)
{
    static FaultPoint point("RegDeleteTreeW", Registry);
    return Call(point, {key, subKey},
                [&] { return View(subKey).empty() ? EmptyKey(key) : DeleteKey(key, subKey, true); });
}

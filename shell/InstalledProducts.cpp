#include "shell/InstalledProducts.h"

#include <memory>
#include <vector>

std::map<ProductId, DWORD> InstalledProductMap;

// The registry's limit on a value name, in characters without the terminator.
constexpr DWORD MaxValueName = 16383;

// Reads every value, even after one has failed. Returns false if any of them failed.
static bool ReadAllValues(const RegistryKey& key)
{
    DWORD count = 0;
    if (RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &count, nullptr,
                         nullptr, nullptr, nullptr) != ERROR_SUCCESS)
    {
        return false;
    }
    std::vector<WideString> names;
    const auto buffer = std::make_unique<TCHAR[]>(MaxValueName + 1);
    for (DWORD index = 0; index < count; ++index)
    {
        DWORD length = MaxValueName;
        buffer[0] = 0;
        if (RegEnumValueW(key.Get(), index, buffer.get(), &length, nullptr, nullptr, nullptr, nullptr) ==
            ERROR_SUCCESS)
        {
            names.emplace_back(buffer.get());
        }
    }
    DWORD read = 0;
    for (const WideString& name : names)
    {
        DWORD number = 0;
        if (key.ReadNumber(name, &number))
        {
            InstalledProductMap.emplace(name, number);
            ++read;
        }
    }
    return read == count;
}

bool LoadInstalledProducts()
{
    InstalledProductMap.clear();
    const RegistryKey key(WideString(FamilyRoot) + _T("\\Installed"), KeyRead);
    return key.IsOpen() && ReadAllValues(key);
}

bool IsProductInstalled(const ProductId& product)
{
    const auto entry = InstalledProductMap.find(product);
    return entry != InstalledProductMap.end() && entry->second != 0;
}

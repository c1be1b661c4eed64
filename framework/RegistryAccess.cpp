#include "framework/RegistryAccess.h"

#include "framework/ProductId.h"

#include <cstring>

RegistryKey::RegistryKey(const WideString& path, REGSAM access, HKEY parent, DWORD* disposition)
{
    const LSTATUS status = access == KeyRead
                               ? RegOpenKeyExW(parent, path.c_str(), 0, access, &m_key)
                               : RegCreateKeyExW(parent, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                                 access, nullptr, &m_key, disposition);
    if (status != ERROR_SUCCESS)
    {
        m_key = nullptr;
    }
}

RegistryKey::~RegistryKey()
{
    if (m_key != nullptr)
    {
        RegCloseKey(m_key);
    }
}

bool RegistryKey::ReadNumber(const WideString& name, DWORD* number) const
{
    // A copy, because a failed query may change its buffer.
    DWORD stored = *number;
    DWORD size = sizeof(stored);
    auto* data = reinterpret_cast<BYTE*>(&stored);
    const bool isRead =
        IsOpen() && RegQueryValueExW(m_key, name.c_str(), nullptr, nullptr, data, &size) == ERROR_SUCCESS;
    *number = isRead ? stored : *number;
    return isRead;
}

bool WriteRegistryDword(const WideString& key, const WideString& name, DWORD value)
{
    return WriteRegistryValue(key, name, REG_DWORD, &value, sizeof(value));
}

bool ReadRegistryString(const WideString& key, const WideString& name, WideString& text)
{
    DWORD size = 0;
    const auto value = ReadRegistryValue(key, name, &size);
    if (value != nullptr)
    {
        text = value.get();
    }
    return value != nullptr;
}

bool WriteRegistryString(const WideString& key, const WideString& name, LPCTSTR text)
{
    const WideString stored = text != nullptr ? text : _T("");
    return WriteRegistryValue(key, name, REG_SZ, stored.c_str(), (stored.size() + 1) * sizeof(TCHAR));
}

std::unique_ptr<TCHAR[]> ReadRegistryValue(const WideString& key, const WideString& name, DWORD* size)
{
    const RegistryKey opened(key, KeyRead);
    *size = 0;
    if (!opened.IsOpen() ||
        RegQueryValueExW(opened.Get(), name.c_str(), nullptr, nullptr, nullptr, size) != ERROR_SUCCESS)
    {
        return nullptr;
    }
    auto value = std::make_unique<TCHAR[]>(size_t{*size} + 1);
    auto* bytes = reinterpret_cast<BYTE*>(value.get());
    if (RegQueryValueExW(opened.Get(), name.c_str(), nullptr, nullptr, bytes, size) != ERROR_SUCCESS)
    {
        return nullptr;
    }
    // If the size is odd, the first byte completes the last character, and the zeroed buffer terminates the
    // text.
    std::memset(bytes + *size, 0, sizeof(TCHAR));
    return value;
}

bool WriteRegistryValue(const WideString& key, const WideString& name, DWORD type, const void* data,
                        size_t size)
{
    const RegistryKey opened(key, KeyWrite);
    return opened.IsOpen() &&
           RegSetValueExW(opened.Get(), name.c_str(), 0, type, static_cast<const BYTE*>(data),
                          static_cast<DWORD>(size)) == ERROR_SUCCESS;
}

void MakeProductKeyPath(WideString& path, const ProductId& product)
{
    path = WideString(FamilyRoot) + _T("\\") + product;
}

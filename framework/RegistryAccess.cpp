#include "framework/RegistryAccess.h"

#include "framework/ProductId.h"

#include <algorithm>
#include <cstring>
#include <memory>

RegistryKey::RegistryKey(const WideString& path, Access access)
{
    HKEY opened = nullptr;
    const LSTATUS status =
        access == Access::Read
            ? RegOpenKeyExW(SettingsRoot, path.c_str(), 0, KeyRead, &opened)
            : RegCreateKeyExW(SettingsRoot, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KeyWrite,
                              nullptr, &opened, nullptr);
    if (status == ERROR_SUCCESS)
    {
        m_key = opened;
    }
}

RegistryKey::~RegistryKey()
{
    if (m_key != nullptr)
    {
        RegCloseKey(m_key);
    }
}

namespace
{
bool WriteValueBytes(const WideString& key, const WideString& name, DWORD type, const void* data, size_t size)
{
    const RegistryKey opened(key, RegistryKey::Access::Write);
    return opened.IsOpen() &&
           RegSetValueExW(opened.Get(), name.c_str(), 0, type, static_cast<const BYTE*>(data),
                          static_cast<DWORD>(size)) == ERROR_SUCCESS;
}

// Gets a value's size in bytes. Returns false if the value does not exist.
bool QuerySize(const RegistryKey& key, const WideString& name, DWORD* size)
{
    *size = 0;
    return RegQueryValueExW(key.Get(), name.c_str(), nullptr, nullptr, nullptr, size) == ERROR_SUCCESS;
}
}  // namespace

bool WriteRegistryDword(const WideString& key, const WideString& name, DWORD value)
{
    return WriteValueBytes(key, name, REG_DWORD, &value, sizeof(value));
}

bool ReadRegistryString(const WideString& key, const WideString& name, WideString& text)
{
    const RegistryKey opened(key, RegistryKey::Access::Read);
    DWORD size = 0;
    if (!opened.IsOpen() || !QuerySize(opened, name, &size))
    {
        return false;
    }
    // The terminator is written after the last byte. If the size is odd, its first byte completes the last
    // character, and the zeroed buffer terminates the text.
    const auto buffer = std::make_unique<TCHAR[]>(static_cast<size_t>(size) + 1);
    if (RegQueryValueExW(opened.Get(), name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(buffer.get()),
                         &size) != ERROR_SUCCESS)
    {
        return false;
    }
    std::memset(reinterpret_cast<BYTE*>(buffer.get()) + size, 0, sizeof(TCHAR));
    text = buffer.get();
    return true;
}

bool WriteRegistryString(const WideString& key, const WideString& name, LPCTSTR text)
{
    const LPCTSTR stored = text != nullptr ? text : _T("");
    const size_t length = std::char_traits<TCHAR>::length(stored);
    return WriteValueBytes(key, name, REG_SZ, stored, (length + 1) * sizeof(TCHAR));
}

void MakeProductKeyPath(WideString& path, const ProductId& product)
{
    path = WideString(FamilyRoot) + _T("\\") + product;
}

void ReadRegistryNumber(const WideString& key, const WideString& name, DWORD& number)
{
    const RegistryKey opened(key, RegistryKey::Access::Read);
    // A copy, because a failed query may change its buffer.
    DWORD word = number;
    DWORD size = sizeof(word);
    if (opened.IsOpen() && RegQueryValueExW(opened.Get(), name.c_str(), nullptr, nullptr,
                                            reinterpret_cast<BYTE*>(&word), &size) == ERROR_SUCCESS)
    {
        number = word;
    }
}

void ReadRegistryBytes(const WideString& key, const WideString& name, DWORD size, void* buffer)
{
    if (buffer == nullptr)
    {
        return;
    }
    const RegistryKey opened(key, RegistryKey::Access::Read);
    DWORD stored = 0;
    if (!opened.IsOpen() || !QuerySize(opened, name, &stored))
    {
        return;
    }
    const auto bytes = std::make_unique<BYTE[]>(stored);
    if (RegQueryValueExW(opened.Get(), name.c_str(), nullptr, nullptr, bytes.get(), &stored) == ERROR_SUCCESS)
    {
        std::memcpy(buffer, bytes.get(), std::min(stored, size));
    }
}

void WriteRegistryBytes(const WideString& key, const WideString& name, DWORD size, const void* buffer)
{
    if (buffer != nullptr && size != 0)
    {
        WriteValueBytes(key, name, REG_BINARY, buffer, size);
    }
}

// Registry access. Keys are relative to HKEY_LOCAL_MACHINE and have no leading backslash. A read creates
// nothing; a write creates the key and its missing parents. Each function opens its key, accesses one value
// and closes the key.
#pragma once

#include <afxstr.h>

#include <memory>
#include <string>

using WideString = std::basic_string<TCHAR>;

inline const HKEY SettingsRoot = HKEY_LOCAL_MACHINE;
inline constexpr REGSAM KeyRead = KEY_READ;
inline constexpr REGSAM KeyWrite = KEY_WRITE;

// The parent of the tool family's keys.
inline constexpr LPCTSTR FamilyRoot = _T("SOFTWARE\\Halvane");

// The key that the pages of the host and device tools share.
inline const WideString TestServicesKey = _T("SOFTWARE\\Ostrel\\TestServices");

// Owns an open key and closes it in the destructor.
class RegistryKey
{
public:
    // With KeyRead the key must exist; any other access creates it if it does not. IsOpen tells whether this
    // succeeded.
    RegistryKey(const WideString& path, REGSAM access, HKEY parent = SettingsRoot,
                DWORD* disposition = nullptr);
    ~RegistryKey();
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;

    bool IsOpen() const { return m_key != nullptr; }
    HKEY Get() const { return m_key; }
    // Replaces the low bytes of `number` by a value of up to four bytes and any type. Returns false, without
    // a change of `number`, if the key is not open, or the value is missing or longer.
    bool ReadNumber(const WideString& name, DWORD* number) const;

private:
    HKEY m_key = nullptr;
};

// Stores a REG_DWORD. Returns false if the key cannot be opened or the value cannot be set.
bool WriteRegistryDword(const WideString& key, const WideString& name, DWORD value);

// Reads a value of any type as UTF-16 text, up to its first NUL. On failure it returns false and does not
// change the text.
bool ReadRegistryString(const WideString& key, const WideString& name, WideString& text);

// Stores a REG_SZ with its terminator. A null pointer is stored as empty text. Returns false as
// WriteRegistryDword does.
bool WriteRegistryString(const WideString& key, const WideString& name, LPCTSTR text);

// Reads a value of any type. Returns its bytes, followed by a terminator, and sets their number. Returns null
// if there is no such value.
std::unique_ptr<TCHAR[]> ReadRegistryValue(const WideString& key, const WideString& name, DWORD* size);

// Stores a value of any type. `size` is in bytes. Returns false as WriteRegistryDword does.
bool WriteRegistryValue(const WideString& key, const WideString& name, DWORD type, const void* data,
                        size_t size);

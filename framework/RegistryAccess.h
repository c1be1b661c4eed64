// Registry access. Keys are relative to HKEY_LOCAL_MACHINE and have no leading backslash. A read creates
// nothing; a write creates the key with all keys above it. Each call opens its key for one value and closes
// it.
#pragma once

#include <afxstr.h>

#include <string>

using WideString = std::basic_string<TCHAR>;

inline const HKEY SettingsRoot = HKEY_LOCAL_MACHINE;
inline constexpr REGSAM KeyRead = KEY_READ;
inline constexpr REGSAM KeyWrite = KEY_WRITE;

// The key above the family's own keys.
inline constexpr LPCTSTR FamilyRoot = _T("SOFTWARE\\Halvane");

// Shared by the pages of the host and device tools.
inline const WideString TestServicesKey = _T("SOFTWARE\\Ostrel\\TestServices");

// Holds an open key, and closes it at the end of its scope.
class RegistryKey
{
public:
    enum class Access
    {
        Read,  // the key must exist
        Write  // the key is created when absent
    };

    // Opens a key of SettingsRoot.
    RegistryKey(const WideString& path, Access access);
    // Takes ownership of an open key.
    explicit RegistryKey(HKEY key) : m_key(key) {}
    ~RegistryKey();
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;

    bool IsOpen() const { return m_key != nullptr; }
    HKEY Get() const { return m_key; }

private:
    HKEY m_key = nullptr;
};

// Stores a REG_DWORD. False if the key or the value was refused.
bool WriteRegistryDword(const WideString& key, const WideString& name, DWORD value);

// Reads the bytes of a value of any type as UTF-16, up to the first NUL. On failure the result is false and
// the text does not change.
bool ReadRegistryString(const WideString& key, const WideString& name, WideString& text);

// Stores a REG_SZ with its terminator; a null pointer counts as the empty text.
bool WriteRegistryString(const WideString& key, const WideString& name, LPCTSTR text);

// Replaces the low bytes of the number by the bytes of a value of any type. A value of more than four bytes,
// or none, leaves the number as it was.
void ReadRegistryNumber(const WideString& key, const WideString& name, DWORD& number);

// Copies at most `size` bytes of a value of any type; the bytes of the buffer behind them do not change.
void ReadRegistryBytes(const WideString& key, const WideString& name, DWORD size, void* buffer);

// Stores a REG_BINARY; does nothing with no buffer or no bytes.
void WriteRegistryBytes(const WideString& key, const WideString& name, DWORD size, const void* buffer);

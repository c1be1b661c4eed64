// The registry operations that pages load and save by. None reports a failure, and no page asks.
#include "framework/SettingsPage.h"

void CSettingsPage::ReadBinaryValue(const WideString& key, const WideString& name, DWORD size, void* buffer)
{
    ReadRegistryBytes(key, name, size, buffer);
}

void CSettingsPage::WriteBinaryValue(const WideString& key, const WideString& name, DWORD size,
                                     const void* buffer)
{
    WriteRegistryBytes(key, name, size, buffer);
}

void CSettingsPage::ReadValue(const WideString& key, const WideString& name, int& member)
{
    auto number = static_cast<DWORD>(member);
    ReadRegistryNumber(key, name, number);
    member = static_cast<int>(number);
}

void CSettingsPage::WriteValue(const WideString& key, const WideString& name, const int& member)
{
    WriteRegistryDword(key, name, static_cast<DWORD>(member));
}

void CSettingsPage::ReadValue(const WideString& key, const WideString& name, UINT& member)
{
    DWORD number = member;
    ReadRegistryNumber(key, name, number);
    member = number;
}

void CSettingsPage::WriteValue(const WideString& key, const WideString& name, const UINT& member)
{
    WriteRegistryDword(key, name, member);
}

void CSettingsPage::ReadValue(const WideString& key, const WideString& name, CString& member)
{
    WideString text;
    ReadRegistryString(key, name, text);
    member = text.c_str();
}

void CSettingsPage::WriteValue(const WideString& key, const WideString& name, const CString& member)
{
    WriteRegistryString(key, name, member);
}

void CSettingsPage::ReadValue(const WideString& key, const WideString& name, bool& member)
{
    DWORD number = 0;
    ReadRegistryNumber(key, name, number);
    member = number != 0;
}

void CSettingsPage::WriteValue(const WideString& key, const WideString& name, const bool& member)
{
    WriteRegistryDword(key, name, member ? 1 : 0);
}

#include "mausb/PortTable.h"

#include "mausb/ToolKey.h"

#include <algorithm>

const WideString NamePacketType = _T("PacketType");

static WideString TableKeyPath(const WideString& name)
{
    return ToolKey() + _T("\\") + name;
}

static bool WritePort(HKEY tableKey, const PortEntry& entry)
{
    CString name;
    name.Format(_T("%u"), entry.PortNumber);
    const RegistryKey key(name.GetString(), KeyWrite, tableKey);
    const auto stored = static_cast<DWORD>(entry.PacketType);
    return key.IsOpen() &&
           RegSetValueExW(key.Get(), NamePacketType.c_str(), 0, REG_DWORD,
                          reinterpret_cast<const BYTE*>(&stored), sizeof(stored)) == ERROR_SUCCESS;
}

bool LoadPortTable(PortTable& table, const WideString& name)
{
    const WideString path = TableKeyPath(name);
    const RegistryKey key(path, KeyRead);
    DWORD longest = 0;
    if (!key.IsOpen() || RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, nullptr, &longest, nullptr,
                                          nullptr, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
    {
        return false;
    }
    WideString portName(longest + 1, 0);
    LSTATUS status = ERROR_SUCCESS;
    for (DWORD index = 0;; ++index)
    {
        DWORD length = longest + 1;
        status =
            RegEnumKeyExW(key.Get(), index, portName.data(), &length, nullptr, nullptr, nullptr, nullptr);
        if (status != ERROR_SUCCESS)
        {
            break;
        }
        const LPCTSTR found = portName.c_str();  // the name without the unused end of the buffer
        const RegistryKey portKey(path + _T("\\") + found, KeyRead);
        if (!portKey.IsOpen())
        {
            return false;
        }
        DWORD type = 0;
        const bool hasType = portKey.ReadNumber(NamePacketType, &type);
        table.push_back({static_cast<UINT>(_tcstoul(found, nullptr, 10)),
                         hasType ? static_cast<int>(type) : PacketTypeDefault});
    }
    std::ranges::stable_sort(table, {}, &PortEntry::PacketType);
    return status == ERROR_NO_MORE_ITEMS;
}

bool SavePortTable(const PortTable& table, const WideString& name)
{
    DWORD disposition = 0;
    const RegistryKey key(TableKeyPath(name), KeyRead | KeyWrite, SettingsRoot, &disposition);
    if (!key.IsOpen() ||
        (disposition == REG_OPENED_EXISTING_KEY && RegDeleteTreeW(key.Get(), nullptr) != ERROR_SUCCESS))
    {
        return false;
    }
    return std::ranges::all_of(table, [&key](const PortEntry& entry) {
        return entry.PortNumber == 0 || WritePort(key.Get(), entry);
    });
}

#include "support/registry.h"

#include "support/calls.h"

#include <algorithm>
#include <iomanip>

const Tools AllTools = {AlderQB,  BirchQB, CedarQB, DogwoodQB,  ElmQB,  FirQB,
                        GinkgoQB, HazelQB, IvyRig,  JuniperRig, KauriQB};

// The editor's keys are these and those below them; the last one belongs to the xHCI port driver.
const Text Roots[] = {keys::Halvane, keys::Ostrel, keys::PortDriver};
constexpr DWORD NameRoom = 16384;
constexpr DWORD DataRoom = 65536;  // larger than any value that a test compares in a tree

StoredValue Dword(DWORD number)
{
    const auto* data = reinterpret_cast<const BYTE*>(&number);
    return {REG_DWORD, {data, data + sizeof(number)}};
}

StoredValue Sz(const Text& text)
{
    const auto* data = reinterpret_cast<const BYTE*>(text.c_str());
    return {REG_SZ, {data, data + (text.size() + 1) * sizeof(TCHAR)}};
}

StoredValue Binary(std::vector<BYTE> data)
{
    return {REG_BINARY, std::move(data)};
}

bool IsWine()
{
    return GetProcAddress(GetModuleHandleW(_T("ntdll.dll")), "wine_get_version") != nullptr;
}

Text Decimal(long long number)
{
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

void PrintTo(const StoredValue& value, std::ostream* out)
{
    *out << "type " << value.type << ", " << value.data.size() << " bytes" << std::hex << std::setfill('0');
    for (const BYTE byte : value.data)
    {
        *out << ' ' << std::setw(2) << unsigned{byte};
    }
    *out << std::dec;
}

void InstallTools(const Tools& tools)
{
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, keys::Installed.c_str());
    Store(keys::Installed, {}, Absent);
    for (const ProductId& tool : tools)
    {
        Store(keys::Installed, tool, Dword(1));
    }
}

void Store(const Text& key, const Text& name, const StoredValue& value)
{
    const calls::Pause pause;
    const RegistryKey opened(key, KeyWrite);
    if (value == Absent)
    {
        return;
    }
    // For a text without a terminator, RegSetValueExW looks for one behind the given length: there must be
    // none.
    std::vector<BYTE> data = value.data;
    data.insert(data.end(), sizeof(TCHAR), 0xFF);
    RegSetValueExW(opened.Get(), name.c_str(), 0, value.type, data.data(),
                   static_cast<DWORD>(value.data.size()));
}

StoredValue Stored(const Text& key, const Text& name)
{
    const calls::Pause pause;
    const RegistryKey opened(key, KeyRead);
    DWORD size = 0;
    if (!opened.IsOpen() ||
        RegQueryValueExW(opened.Get(), name.c_str(), nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS)
    {
        return Absent;
    }
    StoredValue value;
    value.data.resize(size);
    RegQueryValueExW(opened.Get(), name.c_str(), nullptr, &value.type, value.data.data(), &size);
    return value;
}

bool KeyExists(const Text& key)
{
    const calls::Pause pause;
    return RegistryKey(key, KeyRead).IsOpen();
}

Tree StoredTree(const Text& key)
{
    const calls::Pause pause;
    const RegistryKey opened(key, KeyRead);
    if (!opened.IsOpen())
    {
        return {};
    }
    Tree tree = {{key, {}}};
    std::vector<TCHAR> name(NameRoom);
    std::vector<BYTE> data(DataRoom);
    DWORD length = NameRoom;
    DWORD type = 0;
    DWORD size = DataRoom;
    for (DWORD index = 0; RegEnumValueW(opened.Get(), index, name.data(), &length, nullptr, &type,
                                        data.data(), &size) == ERROR_SUCCESS;
         ++index, length = NameRoom, size = DataRoom)
    {
        tree[key][name.data()] = {type, {data.begin(), data.begin() + size}};
    }
    for (DWORD index = 0; RegEnumKeyExW(opened.Get(), index, name.data(), &length, nullptr, nullptr, nullptr,
                                        nullptr) == ERROR_SUCCESS;
         ++index, length = NameRoom)
    {
        tree.merge(StoredTree(key + _T("\\") + name.data()));
    }
    return tree;
}

Tree StoredSettings()
{
    Tree settings;
    for (const Text& root : Roots)
    {
        settings.merge(StoredTree(root));
    }
    settings.erase(keys::Installed);
    std::erase_if(settings, [](const auto& key) { return key.second.empty(); });
    return settings;
}

bool HasSettingsKeys()
{
    return std::any_of(std::begin(Roots), std::end(Roots), KeyExists);
}

void StoreTree(const Tree& tree)
{
    for (const auto& [key, values] : tree)
    {
        for (const auto& [name, value] : values)
        {
            Store(key, name, value);
        }
    }
}

void ClearSettings()
{
    const calls::Pause pause;
    calls::Reset();
    for (const Text& root : Roots)
    {
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, root.c_str());
    }
}

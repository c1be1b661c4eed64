#include "support/registry.h"

#include <cstring>
#include <iomanip>

namespace
{
// Longer than any name that a key or value can have.
constexpr DWORD NameRoom = 16384;

// What the editor reads or writes lies below these.
const Text Roots[] = {keys::Halvane, keys::Ostrel, _T("System\\CurrentControlSet\\SERVICES\\xHCIPort")};

std::vector<BYTE> BytesOf(const void* data, size_t size)
{
    const auto* bytes = static_cast<const BYTE*>(data);
    return {bytes, bytes + size};
}
}  // namespace

const Tools AllTools = {AlderQB,  BirchQB, CedarQB, DogwoodQB,  ElmQB,  FirQB,
                        GinkgoQB, HazelQB, IvyRig,  JuniperRig, KauriQB};

StoredValue Dword(DWORD number)
{
    return {REG_DWORD, BytesOf(&number, sizeof(number))};
}

StoredValue Sz(LPCTSTR text)
{
    return {REG_SZ, BytesOf(text, (std::char_traits<TCHAR>::length(text) + 1) * sizeof(TCHAR))};
}

StoredValue Binary(std::vector<BYTE> data)
{
    return {REG_BINARY, std::move(data)};
}

std::string Printable(const Text& text)
{
    std::string printable;
    for (const TCHAR character : text)
    {
        printable += character >= 32 && character < 127 ? static_cast<char>(character) : '?';
    }
    return printable;
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

void ClearSettings()
{
    for (const Text& root : Roots)
    {
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, root.c_str());
    }
}

void InstallTools(const Tools& tools)
{
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, keys::Installed.c_str());
    const RegistryKey key(keys::Installed, RegistryKey::Access::Write);
    for (const ProductId& tool : tools)
    {
        Store(keys::Installed, tool, Dword(1));
    }
}

void Store(const Text& key, const Text& name, const StoredValue& value)
{
    const RegistryKey opened(key, RegistryKey::Access::Write);
    // Of a text without a terminator the system looks at what stands behind it, and adds one if it finds that.
    std::vector<BYTE> data = value.data;
    data.insert(data.end(), sizeof(TCHAR), 0xFF);
    RegSetValueExW(opened.Get(), name.c_str(), 0, value.type, data.data(),
                   static_cast<DWORD>(value.data.size()));
}

void Store(const Text& key, const Values& values)
{
    for (const auto& [name, value] : values)
    {
        Store(key, name, value);
    }
}

StoredValue Stored(const Text& key, const Text& name)
{
    const RegistryKey opened(key, RegistryKey::Access::Read);
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

Values StoredValues(const Text& key)
{
    Values values;
    const RegistryKey opened(key, RegistryKey::Access::Read);
    std::vector<TCHAR> name(NameRoom);
    DWORD length = NameRoom;
    for (DWORD index = 0; opened.IsOpen() && RegEnumValueW(opened.Get(), index, name.data(), &length, nullptr,
                                                           nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++index)
    {
        values[name.data()] = Stored(key, name.data());
        length = NameRoom;
    }
    return values;
}

std::vector<Text> StoredSubkeys(const Text& key)
{
    std::vector<Text> subkeys;
    const RegistryKey opened(key, RegistryKey::Access::Read);
    std::vector<TCHAR> name(NameRoom);
    DWORD length = NameRoom;
    for (DWORD index = 0; opened.IsOpen() && RegEnumKeyExW(opened.Get(), index, name.data(), &length, nullptr,
                                                           nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++index)
    {
        subkeys.emplace_back(name.data());
        length = NameRoom;
    }
    return subkeys;
}

bool KeyExists(const Text& key)
{
    return RegistryKey(key, RegistryKey::Access::Read).IsOpen();
}

Tree StoredTree(const Text& key)
{
    Tree tree;
    if (KeyExists(key))
    {
        tree[key] = StoredValues(key);
    }
    for (const Text& subkey : StoredSubkeys(key))
    {
        tree.merge(StoredTree(key + _T("\\") + subkey));
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
    return settings;
}

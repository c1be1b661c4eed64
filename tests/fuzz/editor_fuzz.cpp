// Any registry under the editor: values of arbitrary names, types and lengths under every key that it reads,
// then every page opened, applied and closed. A second Apply with nothing changed must write what the first
// wrote.
#include "headless.h"
#include "support/form.h"

#include <gtest/gtest.h>
#include <prsht.h>

#include <algorithm>
#include <cstdlib>

namespace
{
const Text Keys[] = {keys::Installed,  keys::Bench,       keys::Alder,       keys::Birch,
                     keys::Kauri,      keys::ClientPorts, keys::ServerPorts, keys::TestServices,
                     keys::EhciDriver, keys::XhciDriver,  keys::Usb4Driver,  keys::RvskDriver,
                     keys::PortDriver};

// Cuts the fuzzer's bytes into numbers and texts; gives zeros when they have run out.
class Input
{
public:
    Input(const uint8_t* data, size_t size) : m_at(data), m_end(data + size) {}

    bool IsEmpty() const { return m_at == m_end; }
    BYTE Byte() { return IsEmpty() ? BYTE{0} : *m_at++; }
    std::vector<BYTE> Bytes(size_t count)
    {
        const size_t taken = std::min(count, static_cast<size_t>(m_end - m_at));
        std::vector<BYTE> bytes(m_at, m_at + taken);
        m_at += taken;
        return bytes;
    }

private:
    const uint8_t* m_at;
    const uint8_t* m_end;
};

// Names that the editor asks for, so that most values are looked at. They are those that it wrote itself.
const std::vector<Text>& KnownNames()
{
    static const std::vector<Text> names = []
    {
        ClearSettings();
        InstallTools(AllTools);
        RunEditor(
            [](Sheet& sheet)
            {
                for (const Text& tab : sheet.Tabs())
                {
                    sheet.Select(tab);
                }
                sheet.Ok();
            });
        std::vector<Text> found = {AlderQB, BirchQB, CedarQB, ElmQB, FirQB, GinkgoQB, HazelQB, KauriQB};
        for (const auto& [key, values] : StoredSettings())
        {
            for (const auto& [name, value] : values)
            {
                found.push_back(name);
            }
        }
        return found;
    }();
    return names;
}

Text NameFrom(Input& input)
{
    const BYTE choice = input.Byte();
    if (choice < KnownNames().size())
    {
        return KnownNames()[choice];
    }
    Text name;
    for (const BYTE byte : input.Bytes(choice % 16))
    {
        // Digits often, for the ports' subkeys.
        name += static_cast<TCHAR>(byte < 128 ? _T('0') + byte % 10 : byte);
    }
    return name;
}

void StoreSome(Input& input)
{
    InstallTools(AllTools);
    while (!input.IsEmpty())
    {
        const BYTE where = input.Byte();
        Text key = Keys[where % std::size(Keys)];
        Text name = NameFrom(input);
        const bool isSubkey = (where & 0x80) != 0 && !name.empty() && name.find(_T('\\')) == Text::npos;
        if (isSubkey)
        {
            key += _T("\\") + name;
            name = NameFrom(input);
        }
        const BYTE form = input.Byte();
        const std::vector<BYTE> data = input.Bytes(form % 8 == 7 ? input.Byte() : form % 8);
        Store(key, name, {static_cast<DWORD>(form / 8 % 12), data});
    }
}

void Check(bool holds, const char* what)
{
    if (!holds)
    {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    KnownNames();
    ClearSettings();
    Input input(data, size);
    StoreSome(input);
    TryRunEditor(
        [](Sheet& sheet)
        {
            for (const Text& tab : sheet.Tabs())
            {
                Check(sheet.Select(tab), "every page opens");
            }
            SendMessageW(sheet.Window(), PSM_APPLY, 0, 0);
            const Tree first = StoredSettings();
            SendMessageW(sheet.Window(), PSM_APPLY, 0, 0);
            Check(first == StoredSettings(), "a second Apply writes what the first wrote");
            sheet.Cancel();
            Check(first == StoredSettings(), "Cancel writes nothing");
        });
    Check(headless::OpenKeyCount() == 0, "no key stays open");
    Check(!testing::UnitTest::GetInstance()->Failed(), "the tests' own steps");
    return 0;
}

// Runs the editor on arbitrary registries. The first line of an input is the title of a page; the rest is
// stored as values of any type and length that this page reads. Then the page is opened, applied twice and
// closed. If the first line is no title, the rest is stored as the list of installed tools.
#include "support/calls.h"
#include "support/scripts.h"

#include <prsht.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>

namespace
{
void Check(bool holds, const char* what)
{
    if (!holds)
    {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

LONG WINAPI OnException(EXCEPTION_POINTERS* exception)
{
    Check(exception->ExceptionRecord->ExceptionCode != EXCEPTION_ACCESS_VIOLATION, "no address is wrong");
    return EXCEPTION_CONTINUE_SEARCH;
}

struct Place
{
    Text key;  // any subkey of it if it ends in a backslash
    Text name;
    bool isText;
};
using Places = std::vector<Place>;

// Makes values out of the fuzzer's bytes. After the last byte it reads zeros.
class Input
{
public:
    Input(const uint8_t* data, size_t size) : m_bytes(data, data + size) {}

    Text Line()
    {
        const auto end = std::find(m_bytes.begin(), m_bytes.end(), '\n');
        m_at = std::min(m_bytes.size(), static_cast<size_t>(end - m_bytes.begin()) + 1);
        return {m_bytes.begin(), end};
    }
    BYTE Byte() { return m_at < m_bytes.size() ? m_bytes[m_at++] : BYTE{0}; }
    void StoreAll(const Places& places)
    {
        while (m_at < m_bytes.size())
        {
            const size_t choice = Byte() % (places.size() + 1);
            const auto& [key, name, isText] = places[choice % places.size()];
            const Text subkey = key.back() == _T('\\') ? Name() : Text();
            const Text any = choice < places.size() ? name : Name();
            Store(key + subkey, any, Value(isText));
        }
    }

private:
    // A few bytes, or up to 255, or many equal ones. Wine's text layout reads invalid addresses for some
    // characters beyond Latin-1, so a text has none of those.
    StoredValue Value(bool isText)
    {
        const BYTE form = Byte();
        const size_t count = form % 8 < 6 ? form % 8 : Byte();
        StoredValue value = {form / 8U % 12, {}};
        if (form % 8 == 6)
        {
            value.data.assign(count * 64, Byte() | 0x40);
        }
        else
        {
            for (size_t index = 0; index < count; ++index)
            {
                value.data.push_back(Byte());
            }
        }
        for (size_t index = 1; isText && index < value.data.size(); index += 2)
        {
            value.data[index] = 0;
        }
        return value;
    }
    // Mostly digits, which the names of ports are.
    Text Name()
    {
        Text name(Byte() % 16, _T('0'));
        for (TCHAR& character : name)
        {
            const BYTE byte = Byte();
            character = static_cast<TCHAR>(byte < 128 ? _T('0') + byte % 10 : byte);
        }
        return name;
    }

    const std::vector<BYTE> m_bytes;
    size_t m_at = 0;
};

// The values that a page reads. Ports are keys of any names below their table's.
Places PlacesOf(const Text& tab)
{
    Places places;
    for (const Setting& setting : SettingsOf(tab))
    {
        const Text table = setting.key.substr(0, setting.key.rfind(_T('\\')) + 1);
        const bool isPort = setting.name == _T("PacketType");
        places.push_back({isPort ? table : setting.key, setting.name, setting.initial.type == REG_SZ});
    }
    return places;
}

Places InstalledTools()
{
    Places places;
    for (const ProductId& tool : AllTools)
    {
        places.push_back({keys::Installed, tool, false});
    }
    return places;
}

// Returns the settings after the first Apply, none if the list of tools cannot be read.
Tree UsePage(const Text& tab)
{
    const Editor editor;
    if (!editor.HasSheet())
    {
        Check(tab.empty(), "the list of all tools is read");
        return {};
    }
    Check(editor.Select(tab.empty() ? editor.Tabs().back() : tab), "every page opens");
    SendMessageW(editor.Window(), PSM_APPLY, 0, 0);
    Tree applied = StoredSettings();
    SendMessageW(editor.Window(), PSM_APPLY, 0, 0);
    return applied;
}
}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // With Wine's handler the program would end before the fuzzer has saved the input.
    std::signal(SIGABRT, SIG_DFL);
    AddVectoredExceptionHandler(1, OnException);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Input input(data, size);
    const Text line = input.Line();
    const bool isPage = !SettingsOf(line).empty();
    ClearSettings();
    if (isPage)
    {
        InstallTools(AllTools);
    }
    input.StoreAll(isPage ? PlacesOf(line) : InstalledTools());
    const Tree applied = UsePage(isPage ? line : Text());
    Check(applied.empty() || applied == StoredSettings(), "a second Apply, and Cancel, change nothing");
    Check(calls::OpenKeys() == 0, "no key stays open");
    return 0;
}

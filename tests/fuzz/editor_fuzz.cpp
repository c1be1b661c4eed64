// Runs the editor on arbitrary registries. The first line of an input is the title of a page; the rest is
// stored as values of any type and length that this page reads. Then the page is opened, applied twice and
// closed. If the first line is no title, the rest is stored as the list of installed tools.
#include "support/calls.h"
#include "support/scripts.h"

#include <fuzzer/FuzzedDataProvider.h>
#include <prsht.h>

#include <algorithm>
#include <cassert>
#include <csignal>

static LONG WINAPI OnException(EXCEPTION_POINTERS* exception)
{
    assert(exception->ExceptionRecord->ExceptionCode != EXCEPTION_ACCESS_VIOLATION && "no address is wrong");
    return EXCEPTION_CONTINUE_SEARCH;
}

// A few bytes, or up to 255. Wine's text layout reads invalid addresses for some characters beyond Latin-1,
// so a text has none of those.
static StoredValue AnyValue(FuzzedDataProvider& input, bool isText)
{
    const auto few = input.ConsumeIntegralInRange<size_t>(0, 6);
    StoredValue value = {input.ConsumeIntegralInRange<DWORD>(0, 11), {}};
    value.data = input.ConsumeBytes<BYTE>(few < 6 ? few : input.ConsumeIntegral<BYTE>());
    for (size_t index = 1; isText && index < value.data.size(); index += 2)
    {
        value.data[index] = 0;
    }
    return value;
}

// Mostly digits, which the names of ports are.
static Text AnyName(FuzzedDataProvider& input)
{
    Text name;
    for (const BYTE byte : input.ConsumeBytes<BYTE>(input.ConsumeIntegralInRange<size_t>(0, 15)))
    {
        name += static_cast<TCHAR>(byte < 128 ? _T('0') + byte % 10 : byte);
    }
    return name;
}

// The values that a page reads, or, without a page, those of the installed tools.
static std::vector<Setting> PlacesOf(const Text& tab)
{
    std::vector<Setting> places = SettingsOf(tab);
    for (const ProductId& tool : places.empty() ? AllTools : Tools())
    {
        places.push_back({{}, keys::Installed, tool, Absent, {}, {}});
    }
    return places;
}

static void StoreAll(FuzzedDataProvider& input, const std::vector<Setting>& places)
{
    while (input.remaining_bytes() > 0)
    {
        const auto choice = input.ConsumeIntegralInRange<size_t>(0, places.size());
        const Setting& place = places[choice % places.size()];
        // Ports are keys of any names.
        const bool isPort = place.name == _T("PacketType");
        const Text key =
            isPort ? place.key.substr(0, place.key.rfind(_T('\\')) + 1) + AnyName(input) : place.key;
        const Text name = choice < places.size() ? place.name : AnyName(input);
        Store(key, name, AnyValue(input, place.initial.type == REG_SZ));
    }
}

// Returns the settings after the first Apply, none if the list of tools cannot be read.
static Tree UsePage(const Text& tab)
{
    const Editor editor;
    if (!editor.HasSheet())
    {
        assert(tab.empty() && "the list of all tools is read");
        return {};
    }
    const bool opens = editor.Select(tab.empty() ? editor.Tabs().back() : tab);
    assert(opens && "every page opens");
    SendMessageW(editor.Window(), PSM_APPLY, 0, 0);
    Tree applied = StoredSettings();
    SendMessageW(editor.Window(), PSM_APPLY, 0, 0);
    return applied;
}

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // With Wine's handler the program would end before the fuzzer has saved the input.
    std::signal(SIGABRT, SIG_DFL);
    AddVectoredExceptionHandler(1, OnException);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const uint8_t* const lineEnd = std::find(data, data + size, '\n');
    const Text line(data, lineEnd);
    FuzzedDataProvider input(lineEnd, static_cast<size_t>(data + size - lineEnd));
    const bool isPage = !SettingsOf(line).empty();
    ClearSettings();
    if (isPage)
    {
        InstallTools(AllTools);
    }
    StoreAll(input, PlacesOf(line));
    const Tree applied = UsePage(isPage ? line : Text());
    assert((applied.empty() || applied == StoredSettings()) && "a second Apply, and Cancel, change nothing");
    assert(calls::OpenKeys() == 0 && "no key stays open");
    return 0;
}

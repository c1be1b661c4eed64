// Measures the time that the editor adds to the registry calls. Each load or save runs once while its calls
// are recorded. Then the editor and the bare calls run in turn, so that a disturbance affects both. Argument:
// the seconds for each measure; 0 runs each measure of the pages a few times and leaves out the others.
#include "driver/inprocess.h"
#include "driver/interpose.h"
#include "framework/SettingsPage.h"
#include "mausb/PortTable.h"
#include "mausb/ToolKey.h"
#include "measure.h"
#include "shell/InstalledProducts.h"

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <tuple>

namespace
{
constexpr size_t LeastRuns = 3;
// After so many runs the page is created again, because its port tables grow with every load.
constexpr size_t RunsOfOne = 32;
constexpr UINT MostPorts = 65535;

using Call = std::function<void()>;

// Receives the calls; null while none are recorded.
std::vector<Call>* g_notes = nullptr;
// The keys that the repeated calls have opened. The editor closes its keys in reverse order.
std::vector<HKEY> g_open;

// Each of these keeps an argument of a call: the result returns it for the repeated call.
template <class Value, class All>
auto Keep(Value value, const All&)
{
    return [value] { return value; };
}

template <class All>
auto Keep(HKEY key, const All&)
{
    return [key] { return key == SettingsRoot ? key : g_open.back(); };
}

template <class All>
auto Keep(PHKEY, const All&)
{
    return [] { return &g_open.emplace_back(); };
}

template <class All>
auto Keep(LPCWSTR text, const All&)
{
    return [isNull = text == nullptr, kept = WideString(text != nullptr ? text : L"")] {
        return isNull ? nullptr : kept.c_str();
    };
}

// The bytes to store; the last argument is their count.
template <class All>
auto Keep(const BYTE* data, const All& all)
{
    return [kept = std::vector<BYTE>(data, data + std::get<std::tuple_size_v<All> - 1>(all))] {
        return kept.data();
    };
}

// A buffer for output, or a size for input and output.
template <class Unit, class All>
auto Keep(Unit* output, const All&)
{
    static Unit room[65536];
    return [isNull = output == nullptr, before = output != nullptr ? *output : Unit{}] {
        return isNull ? nullptr : &(room[0] = before);
    };
}

// Calls the system's function, and records the call if g_notes is set.
template <const char* Name, class... Arguments>
LSTATUS WINAPI Noted(Arguments... arguments)
{
    static const auto own = reinterpret_cast<decltype(&Noted<Name, Arguments...>)>(SystemFunction(Name));
    if (g_notes != nullptr)
    {
        g_notes->push_back([... kept = Keep(arguments, std::tie(arguments...))] {
            // In braces the arguments are evaluated in order: the open key before the key to be opened.
            std::apply(own, std::tuple<Arguments...>{kept()...});
            if (sizeof...(Arguments) == 1)
            {
                g_open.pop_back();
            }
        });
    }
    return own(arguments...);
}
}  // namespace

#define NOTE_CALLS_OF(function)                    \
    constexpr char NameOf##function[] = #function; \
    INTERPOSE(function, Noted<NameOf##function>)

NOTE_CALLS_OF(RegOpenKeyExW)
NOTE_CALLS_OF(RegCreateKeyExW)
NOTE_CALLS_OF(RegCloseKey)
NOTE_CALLS_OF(RegDeleteTreeW)
NOTE_CALLS_OF(RegSetValueExW)
NOTE_CALLS_OF(RegQueryValueExW)
NOTE_CALLS_OF(RegQueryInfoKeyW)
NOTE_CALLS_OF(RegEnumKeyExW)
NOTE_CALLS_OF(RegEnumValueW)

namespace
{
double g_milliseconds = 1000;  // for each measure

// The medians of the editor and of the bare calls.
using Medians = std::pair<double, double>;

Medians Measure(const std::string& name, const std::function<Call()>& prepare)
{
    std::vector<Call> calls;
    Call editor = prepare();
    g_notes = &calls;
    editor();
    g_notes = nullptr;
    Times editorTimes;
    Times bareTimes;
    const double end = Milliseconds() + g_milliseconds;
    while (bareTimes.size() < LeastRuns || Milliseconds() < end)
    {
        const double start = Milliseconds();
        editor();
        const double between = Milliseconds();
        for (const Call& call : calls)
        {
            call();
        }
        editorTimes.push_back(between - start);
        bareTimes.push_back(Milliseconds() - between);
        if (bareTimes.size() % RunsOfOne == 0)
        {
            editor = nullptr;  // only one sheet can be open
            editor = prepare();
        }
    }
    const Medians medians = {Median(editorTimes), Median(bareTimes)};
    std::printf("  %-31s%8zu%7zu%12.3f%12.3f%8.3f\n", name.c_str(), calls.size(), bareTimes.size(),
                medians.first, medians.second, medians.first / medians.second);
    std::fflush(stdout);
    return medians;
}

// Makes an operation public.
struct Page : CSettingsPage
{
    using CSettingsPage::LoadSettings;
};

// Opens a new sheet with this page in front.
std::shared_ptr<Editor> OpenPage(int index)
{
    auto editor = std::make_shared<Editor>();
    editor->SelectIndex(index);
    return editor;
}

CSettingsPage* PageOf(const Editor& editor)
{
    return static_cast<CSettingsPage*>(CWnd::FromHandlePermanent(editor.Page()));
}

void MeasurePages()
{
    const int count = Editor().PageCount();
    for (int index = 0; index < count; ++index)
    {
        const WideString title = Form(OpenPage(index)->Page()).Title();
        const std::string name(title.begin(), title.end());
        Measure(name + ", load", [index]() -> Call {
            const auto editor = OpenPage(index);
            PageOf(*editor)->OnApply();  // stores all values, so that the load finds them
            return [editor] { (PageOf(*editor)->*&Page::LoadSettings)(); };
        });
        Measure(name + ", Apply",
                [index]() -> Call { return [editor = OpenPage(index)] { PageOf(*editor)->OnApply(); }; });
    }
}

const WideString TableName = L"PortsOfBenchmark";

Call SavePorts(UINT count)
{
    PortTable table;
    for (UINT port = 1; port <= count; ++port)
    {
        table.push_back({port, static_cast<int>(port % 4) - 1});
    }
    SavePortTable(table, TableName);
    return [table] { SavePortTable(table, TableName); };
}

Call LoadPorts(UINT count)
{
    SavePorts(count);
    return [] {
        PortTable table;
        LoadPortTable(table, TableName);
    };
}

void MeasurePortTables(const std::string& name, Call (*prepare)(UINT))
{
    Medians thousand;
    Medians most;
    for (const UINT count : {10U, 100U, 1000U, 10000U, MostPorts})
    {
        thousand = count == 10000 ? most : thousand;
        most = Measure(name + " of " + std::to_string(count) + " ports", [=] { return prepare(count); });
    }
    RegDeleteTreeW(SettingsRoot, (ToolKey() + L"\\" + TableName).c_str());
    const double share = 1000.0 / MostPorts;
    std::printf("  a port of %u takes, beside one of 1000: the editor %.2f, the bare calls %.2f\n", MostPorts,
                share * most.first / thousand.first, share * most.second / thousand.second);
}

Call LoadProducts(UINT count)
{
    const WideString key = WideString(FamilyRoot) + L"\\Installed";
    RegDeleteTreeW(SettingsRoot, key.c_str());
    for (UINT index = 0; index < count; ++index)
    {
        WriteRegistryDword(key, L"Tool" + std::to_wstring(index), 1);
    }
    return [] { LoadInstalledProducts(); };
}
}  // namespace

int main(int argc, char** argv)
{
    g_milliseconds *= argc > 1 ? std::atof(argv[1]) : 1;
    const std::jthread awake = KeepAwake();
    std::printf("medians, ms                          calls   runs      editor  bare calls   ratio\n");
    MeasurePages();
    if (g_milliseconds == 0)
    {
        return 0;
    }
    MeasurePortTables("load", LoadPorts);
    MeasurePortTables("save", SavePorts);
    for (const UINT count : {10U, 100U, 1000U, 10000U})
    {
        Measure("list of " + std::to_string(count) + " tools", [=] { return LoadProducts(count); });
    }
    return 0;
}

// Measures the time that the editor adds to the registry calls: that of each load or save, beside the time
// that its calls take within it. Argument: the seconds for each measure; 0 runs each measure of the pages a
// few times and leaves out the others.
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
#include <numeric>
#include <string>

constexpr size_t LeastRuns = 3;
// After so many runs the page is created again, because its port tables grow with every load.
constexpr size_t RunsOfOne = 32;
constexpr UINT MostPorts = 65535;

using Call = std::function<void()>;

// The times of the registry calls since this was last cleared, in milliseconds.
static Times g_calls;

// Calls the system's function and measures it.
template <const char* Name, class... Arguments>
static LSTATUS WINAPI Timed(Arguments... arguments)
{
    static const auto own = reinterpret_cast<decltype(&Timed<Name, Arguments...>)>(SystemFunction(Name));
    const double start = Milliseconds();
    const LSTATUS status = own(arguments...);
    g_calls.push_back(Milliseconds() - start);
    return status;
}

#define TIME_CALLS_OF(function)                    \
    constexpr char NameOf##function[] = #function; \
    INTERPOSE(function, Timed<NameOf##function>)

TIME_CALLS_OF(RegOpenKeyExW)
TIME_CALLS_OF(RegCreateKeyExW)
TIME_CALLS_OF(RegCloseKey)
TIME_CALLS_OF(RegDeleteTreeW)
TIME_CALLS_OF(RegSetValueExW)
TIME_CALLS_OF(RegQueryValueExW)
TIME_CALLS_OF(RegQueryInfoKeyW)
TIME_CALLS_OF(RegEnumKeyExW)
TIME_CALLS_OF(RegEnumValueW)

namespace
{
double g_milliseconds = 1000;  // for each measure

void Measure(const std::string& name, const std::function<Call()>& prepare)
{
    Call editor = prepare();
    size_t calls = 0;
    Times editorTimes;
    Times callTimes;
    const double end = Milliseconds() + g_milliseconds;
    while (callTimes.size() < LeastRuns || Milliseconds() < end)
    {
        g_calls.clear();
        const double start = Milliseconds();
        editor();
        editorTimes.push_back(Milliseconds() - start);
        callTimes.push_back(std::accumulate(g_calls.begin(), g_calls.end(), 0.0));
        calls = g_calls.size();
        if (callTimes.size() % RunsOfOne == 0)
        {
            editor = nullptr;  // only one sheet can be open
            editor = prepare();
        }
    }
    std::printf("  %-31s%8zu%7zu%12.3f%12.3f%8.3f\n", name.c_str(), calls, callTimes.size(),
                Median(editorTimes), Median(callTimes), Median(editorTimes) / Median(callTimes));
    std::fflush(stdout);
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
    for (const UINT count : {10U, 100U, 1000U, 10000U, MostPorts})
    {
        Measure(name + " of " + std::to_string(count) + " ports", [=] { return prepare(count); });
    }
    RegDeleteTreeW(SettingsRoot, (ToolKey() + L"\\" + TableName).c_str());
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
    std::printf("medians, ms                          calls   runs      editor       calls   ratio\n");
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

// What the editor adds to the registry's own calls. Everything that it loads or stores is done once while its
// calls are noted; then the editor and the noted calls alone take turns, so that what disturbs one disturbs
// the other. Arguments: the seconds for each measure; 0 makes the least of runs, and only of the pages.
#include "mausb/MAUSBHubUnderTestParamsDlg.h"
#include "mausb/MAUSBMediaDlg.h"
#include "mausb/MAUSBProtocolConstantsDlg.h"
#include "mausb/MAUSBSettingsDlg.h"
#include "mausb/ToolKey.h"
#include "measure.h"
#include "pages/Chapter9Dlg.h"
#include "pages/DriversAndFirmwareDlg.h"
#include "pages/GeneralSettingsDlg.h"
#include "pages/WaiversDlg.h"
#include "pages/XHCISettingsDlg.h"
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
// A page is made anew after so many, because its port tables grow with every load.
constexpr size_t RunsOfOne = 32;
constexpr UINT MostPorts = 65535;

using Call = std::function<void()>;

// Where the calls are noted, while they are.
std::vector<Call>* g_notes = nullptr;
// The keys that the noted calls, made again, have open. What the editor opened last it closes first.
std::vector<HKEY> g_open;

// Each makes of an argument what gives it again for a call made later.
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

// The bytes to store, whose count is the last argument.
template <class All>
auto Keep(const BYTE* data, const All& all)
{
    return [kept = std::vector<BYTE>(data, data + std::get<std::tuple_size_v<All> - 1>(all))] {
        return kept.data();
    };
}

// What comes out, and the size that goes in before.
template <class Unit, class All>
auto Keep(Unit* output, const All&)
{
    static Unit room[65536];
    return [isNull = output == nullptr, before = output != nullptr ? *output : Unit{}] {
        return isNull ? nullptr : &(room[0] = before);
    };
}

// Stands for a function of the registry, and notes its calls.
template <const char* Name, class... Arguments>
LSTATUS WINAPI Noted(Arguments... arguments)
{
    static const auto real = reinterpret_cast<LSTATUS (*)(Arguments...)>(
        reinterpret_cast<void*>(GetProcAddress(LoadLibraryW(L"advapi32.dll"), Name)));
    if (g_notes != nullptr)
    {
        g_notes->push_back([... kept = Keep(arguments, std::tie(arguments...))] {
            // In braces the key that is open comes first, then the one that the call opens.
            std::apply(real, std::tuple<Arguments...>{kept()...});
            if (sizeof...(Arguments) == 1)
            {
                g_open.pop_back();
            }
        });
    }
    return real(arguments...);
}
}  // namespace

// What the program's calls go through. Defined here, it is not taken from the import library.
#define NOTE_CALLS_OF(function)                         \
    static constexpr char Name##function[] = #function; \
    decltype(function)* Import##function asm("__imp_" #function) = Noted<Name##function>;

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

// Of the editor and of the bare calls.
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
            editor = prepare();
        }
    }
    const Medians medians = {Median(editorTimes), Median(bareTimes)};
    std::printf("  %-31s%8zu%7zu%12.3f%12.3f%8.3f\n", name.c_str(), calls.size(), bareTimes.size(),
                medians.first, medians.second, medians.first / medians.second);
    std::fflush(stdout);
    return medians;
}

// A page with its window, which some pages load and save through. It is never shown.
template <class Page>
class HiddenPage : public Page
{
public:
    explicit HiddenPage(HWND parent)
    {
        CreateDialogParamW(nullptr, MAKEINTRESOURCEW(this->m_nIDTemplate), parent, AfxDlgProc,
                           reinterpret_cast<LPARAM>(static_cast<CDialog*>(this)));
    }
    using Page::LoadSettings;
};

template <class Page>
void MeasurePage(const std::string& name, HWND parent)
{
    const auto open = [parent] {
        auto page = std::make_shared<HiddenPage<Page>>(parent);
        page->OnApply();  // a load finds all values
        return page;
    };
    Measure(name + ", load", [=]() -> Call { return [page = open()] { page->LoadSettings(); }; });
    Measure(name + ", Apply", [=]() -> Call { return [page = open()] { page->OnApply(); }; });
}

void MeasurePages()
{
    LoadInstalledProducts();
    const HWND parent =
        CreateWindowW(L"STATIC", nullptr, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    MeasurePage<CGeneralSettingsDlg>("General Settings", parent);
    MeasurePage<CDriversAndFirmwareDlg>("Drivers & Firmware", parent);
    MeasurePage<CChapter9Dlg>("Chapter 9", parent);
    MeasurePage<CWaiversDlg>("Waivers", parent);
    MeasurePage<CXHCISettingsDlg>("xHCI Settings", parent);
    MeasurePage<CMAUSBSettingsDlg>("MAUSB Settings", parent);
    MeasurePage<CMAUSBMediaDlg>("MAUSB Media Settings", parent);
    MeasurePage<CMAUSBProtocolConstantsDlg>("MAUSB Protocol Settings", parent);
    MeasurePage<CMAUSBHubUnderTestParamsDlg>("MAUSB HUT Params", parent);
    DestroyWindow(parent);
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

// What the editor adds to the registry's own calls: each measure stands beside the same calls made bare, and
// the last lines give the ratios. How loading and saving grow with what is stored is told as a complexity.
#include "framework/SettingsPage.h"
#include "headless.h"
#include "mausb/MAUSBProtocolConstantsDlg.h"
#include "mausb/PortTable.h"
#include "mausb/ToolKey.h"
#include "resource.h"
#include "shell/InstalledProducts.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>

namespace
{
constexpr int MostProducts = 10000;
constexpr int MostPorts = 65535;

const WideString Name = _T("Value");
const WideString InstalledKey = WideString(FamilyRoot) + _T("\\Installed");
const WideString Ports = _T("TCPPortsClient");

// A page whose registry operations can be called from here.
class BarePage : public CSettingsPage
{
public:
    BarePage() : CSettingsPage(IDD_GENERAL_SETTINGS) {}
    using CSettingsPage::ReadValue;
    using CSettingsPage::WriteValue;

protected:
    void InitToolTips() override {}
    void SaveSettings() override {}
    void LoadSettings() override {}
};

class ConstantsPage : public CMAUSBProtocolConstantsDlg
{
public:
    using CMAUSBProtocolConstantsDlg::OnApply;
};

HKEY Create(const WideString& path)
{
    HKEY key = nullptr;
    RegCreateKeyExW(SettingsRoot, path.c_str(), 0, nullptr, 0, KeyWrite, nullptr, &key, nullptr);
    return key;
}

HKEY Open(const WideString& path)
{
    HKEY key = nullptr;
    RegOpenKeyExW(SettingsRoot, path.c_str(), 0, KeyRead, &key);
    return key;
}

void WriteBare(const WideString& path, const WideString& name, DWORD number)
{
    const HKEY key = Create(path);
    RegSetValueExW(key, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof(number));
    RegCloseKey(key);
}

void ReadBare(const WideString& path, const WideString& name, DWORD& number)
{
    const HKEY key = Open(path);
    DWORD size = sizeof(number);
    RegQueryValueExW(key, name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size);
    RegCloseKey(key);
}

WideString Decimal(int number)
{
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

void WriteValueBare(benchmark::State& state)
{
    headless::ResetRegistry();
    DWORD number = 0;
    for (auto _ : state)
    {
        WriteBare(ToolKey(), Name, ++number);
    }
}

void WriteValueEditor(benchmark::State& state)
{
    headless::ResetRegistry();
    BarePage page;
    int number = 0;
    for (auto _ : state)
    {
        ++number;
        page.WriteValue(ToolKey(), Name, number);
    }
}

void ReadValueBare(benchmark::State& state)
{
    headless::ResetRegistry();
    WriteBare(ToolKey(), Name, 300);
    DWORD number = 0;
    for (auto _ : state)
    {
        ReadBare(ToolKey(), Name, number);
        benchmark::DoNotOptimize(number);
    }
}

void ReadValueEditor(benchmark::State& state)
{
    headless::ResetRegistry();
    WriteBare(ToolKey(), Name, 300);
    BarePage page;
    int number = 0;
    for (auto _ : state)
    {
        page.ReadValue(ToolKey(), Name, number);
        benchmark::DoNotOptimize(number);
    }
}

// The numbers that a page stored, as the bare calls are to store them.
std::vector<headless::RegistryCall> StoredBy(ConstantsPage& page)
{
    headless::RecordRegistryCalls(true);
    page.OnApply();
    headless::RecordRegistryCalls(false);
    std::vector<headless::RegistryCall> stored;
    for (const headless::RegistryCall& call : headless::RegistryCalls())
    {
        if (call.function == "RegSetValueExW")
        {
            stored.push_back(call);
        }
    }
    return stored;
}

void PageApplyBare(benchmark::State& state)
{
    headless::ResetRegistry();
    ConstantsPage page;
    const std::vector<headless::RegistryCall> values = StoredBy(page);
    for (auto _ : state)
    {
        for (const headless::RegistryCall& value : values)
        {
            WriteBare(ToolKey(), value.value, 1);
        }
    }
    state.counters["values"] = static_cast<double>(values.size());
}

void PageApplyEditor(benchmark::State& state)
{
    headless::ResetRegistry();
    ConstantsPage page;
    for (auto _ : state)
    {
        page.OnApply();
    }
}

void StoreProducts(benchmark::State& state)
{
    headless::ResetRegistry();
    for (int index = 0; index < state.range(0); ++index)
    {
        WriteBare(InstalledKey, _T("Tool") + Decimal(index), 1);
    }
    state.SetComplexityN(state.range(0));
}

void LoadProductsBare(benchmark::State& state)
{
    StoreProducts(state);
    std::vector<TCHAR> name(16384);
    for (auto _ : state)
    {
        const HKEY key = Open(InstalledKey);
        std::vector<WideString> names;
        auto length = static_cast<DWORD>(name.size());
        for (DWORD index = 0; RegEnumValueW(key, index, name.data(), &length, nullptr, nullptr, nullptr,
                                            nullptr) == ERROR_SUCCESS;
             ++index)
        {
            names.emplace_back(name.data());
            length = static_cast<DWORD>(name.size());
        }
        for (const WideString& each : names)
        {
            DWORD number = 0;
            DWORD size = sizeof(number);
            RegQueryValueExW(key, each.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size);
            benchmark::DoNotOptimize(number);
        }
        RegCloseKey(key);
    }
}

void LoadProductsEditor(benchmark::State& state)
{
    StoreProducts(state);
    for (auto _ : state)
    {
        LoadInstalledProducts();
    }
}

PortTable ManyPorts(benchmark::State& state)
{
    PortTable table;
    for (int port = 1; port <= state.range(0); ++port)
    {
        table.push_back({static_cast<UINT>(port), port % 4 - 1});
    }
    state.SetComplexityN(state.range(0));
    return table;
}

void SavePortsEditor(benchmark::State& state)
{
    headless::ResetRegistry();
    const PortTable table = ManyPorts(state);
    for (auto _ : state)
    {
        SavePortTable(table, Ports);
    }
}

void LoadPortsEditor(benchmark::State& state)
{
    headless::ResetRegistry();
    SavePortTable(ManyPorts(state), Ports);
    for (auto _ : state)
    {
        PortTable table;
        LoadPortTable(table, Ports);
        benchmark::DoNotOptimize(table.data());
    }
}

WideString PortsPath()
{
    return ToolKey() + _T("\\") + Ports;
}

void SavePortsBare(benchmark::State& state)
{
    headless::ResetRegistry();
    const PortTable table = ManyPorts(state);
    for (auto _ : state)
    {
        RegDeleteTreeW(SettingsRoot, PortsPath().c_str());
        const HKEY parent = Create(PortsPath());
        for (const PortEntry& entry : table)
        {
            HKEY key = nullptr;
            RegCreateKeyExW(parent, Decimal(static_cast<int>(entry.PortNumber)).c_str(), 0, nullptr, 0,
                            KeyWrite, nullptr, &key, nullptr);
            RegSetValueExW(key, _T("PacketType"), 0, REG_DWORD,
                           reinterpret_cast<const BYTE*>(&entry.PacketType), sizeof(entry.PacketType));
            RegCloseKey(key);
        }
        RegCloseKey(parent);
    }
}

void LoadPortsBare(benchmark::State& state)
{
    headless::ResetRegistry();
    SavePortTable(ManyPorts(state), Ports);
    for (auto _ : state)
    {
        const HKEY parent = Open(PortsPath());
        TCHAR name[256];
        DWORD length = 256;
        for (DWORD index = 0;
             RegEnumKeyExW(parent, index, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
             ++index)
        {
            HKEY key = nullptr;
            RegOpenKeyExW(parent, name, 0, KeyRead, &key);
            DWORD type = 0;
            DWORD size = sizeof(type);
            RegQueryValueExW(key, _T("PacketType"), nullptr, nullptr, reinterpret_cast<BYTE*>(&type), &size);
            benchmark::DoNotOptimize(type);
            RegCloseKey(key);
            length = 256;
        }
        RegCloseKey(parent);
    }
}

void OverPorts(benchmark::internal::Benchmark* measure)
{
    measure->RangeMultiplier(10)
        ->Range(10, MostPorts)
        ->Complexity(benchmark::oNLogN)
        ->Unit(benchmark::kMicrosecond);
}

void OverProducts(benchmark::internal::Benchmark* measure)
{
    measure->RangeMultiplier(10)
        ->Range(10, MostProducts)
        ->Complexity(benchmark::oNLogN)
        ->Unit(benchmark::kMicrosecond);
}

// Prints as usual, and keeps the medians of what has both a bare and an editor's side.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
        {
            if (run.run_type == Run::RT_Iteration)
            {
                m_times[run.benchmark_name()].push_back(run.GetAdjustedCPUTime());
            }
        }
    }

    void PrintRatios()
    {
        std::printf("\n%-28s%s\n", "editor / bare", "ratio of medians");
        for (auto& [name, times] : m_times)
        {
            const size_t at = name.find("Editor");
            const std::string bare = at != std::string::npos ? std::string(name).replace(at, 6, "Bare") : "";
            if (m_times.contains(bare))
            {
                std::printf("%-28s%.3f\n", std::string(name).erase(at, 6).c_str(),
                            Median(times) / Median(m_times[bare]));
            }
        }
    }

private:
    static double Median(std::vector<double>& times)
    {
        std::sort(times.begin(), times.end());
        return times[times.size() / 2];
    }

    std::map<std::string, std::vector<double>> m_times;
};
}  // namespace

BENCHMARK(WriteValueBare);
BENCHMARK(WriteValueEditor);
BENCHMARK(ReadValueBare);
BENCHMARK(ReadValueEditor);
BENCHMARK(PageApplyBare);
BENCHMARK(PageApplyEditor);
BENCHMARK(LoadProductsBare)->Apply(OverProducts);
BENCHMARK(LoadProductsEditor)->Apply(OverProducts);
BENCHMARK(SavePortsBare)->Apply(OverPorts);
BENCHMARK(SavePortsEditor)->Apply(OverPorts);
BENCHMARK(LoadPortsBare)->Apply(OverPorts);
BENCHMARK(LoadPortsEditor)->Apply(OverPorts);

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
    return 0;
}

// How long the editor takes from the start of its process to the visible sheet, beside an empty sheet and
// beside a sheet of the same first page with no program behind it; and how long each page takes when it is
// opened for the first time. Arguments: the number of runs.
#include "driver/editor.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <map>

namespace
{
constexpr int DefaultRuns = 21;
constexpr double Bound = 1.10;
// Until Wine's server has cleared away a program that has ended.
constexpr DWORD SettleMilliseconds = 60;

double Milliseconds()
{
    LARGE_INTEGER now = {};
    LARGE_INTEGER frequency = {};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

double Median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

// The least noisy: noise only ever adds.
double Least(const std::vector<double>& times)
{
    return *std::min_element(times.begin(), times.end());
}

double TimeStart(const wchar_t* program, const wchar_t* title)
{
    const double start = Milliseconds();
    const EditorProcess process({}, program);
    const EditorSheet sheet(process.WaitForWindow(title));
    const double time = Milliseconds() - start;
    sheet.Cancel();
    process.WaitForEnd();
    Sleep(SettleMilliseconds);
    return time;
}

// From the change of page until it is painted.
void TimePages(std::map<int, std::vector<double>>& times, std::vector<std::wstring>& titles)
{
    const EditorProcess editor;
    const EditorSheet sheet = editor.WaitForSheet();
    titles.clear();
    for (int index = 0; index < sheet.PageCount(); ++index)
    {
        const double start = Milliseconds();
        sheet.SelectIndex(index);
        RedrawWindow(sheet.Page(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        times[index].push_back(Milliseconds() - start);
        titles.push_back(EditorDialog(sheet.Page()).Title());
    }
    sheet.Cancel();
    editor.WaitForEnd();
    Sleep(SettleMilliseconds);
}
// Keeps a processor awake: on a virtual machine the waking of one that idles takes longer than much of what
// is measured, and every message between the programs and Wine's server waits for it.
DWORD WINAPI Spin(void* stopped)
{
    while (!*static_cast<const std::atomic<bool>*>(stopped))
    {
    }
    return 0;
}
}  // namespace

int main(int argc, char** argv)
{
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : DefaultRuns;
    std::vector<double> empty;
    std::vector<double> firstPage;
    std::vector<double> editor;
    std::map<int, std::vector<double>> pages;
    std::vector<std::wstring> titles;
    std::atomic<bool> stopped = false;
    const HANDLE spinner = CreateThread(nullptr, 0, Spin, &stopped, 0, nullptr);
    // The first of each only warms up.
    for (int run = 0; run <= runs; ++run)
    {
        empty.push_back(TimeStart(L"empty_sheet.exe", L"Bare Sheet"));
        firstPage.push_back(TimeStart(L"first_page.exe", L"Bare Sheet"));
        editor.push_back(TimeStart(L"QBSettings.exe", SheetTitle));
        TimePages(pages, titles);
    }
    stopped = true;
    WaitForSingleObject(spinner, INFINITE);
    CloseHandle(spinner);
    for (std::vector<double>* times : {&empty, &firstPage, &editor})
    {
        times->erase(times->begin());
    }

    const double ratio = Median(editor) / Median(empty);
    std::printf("start to visible sheet, %d runs      median    least\n", runs);
    std::printf("  empty sheet                   %8.1f %8.1f ms\n", Median(empty), Least(empty));
    std::printf("  the first page alone          %8.1f %8.1f ms\n", Median(firstPage), Least(firstPage));
    std::printf("  QBSettings                    %8.1f %8.1f ms\n", Median(editor), Least(editor));
    std::printf("  ratio %.3f, bound %.2f: %s\n", ratio, Bound, ratio <= Bound ? "kept" : "exceeded");
    std::printf("first display of a page\n");
    // The first page comes up with the sheet.
    for (size_t index = 1; index < titles.size(); ++index)
    {
        std::vector<double>& times = pages[static_cast<int>(index)];
        times.erase(times.begin());
        std::printf("  %-30ls%8.1f %8.1f ms\n", titles[index].c_str(), Median(times), Least(times));
    }
    return 0;
}

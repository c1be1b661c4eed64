// Measures the time from the start of the editor's process to its visible sheet, and to the first display of
// each page, beside a bare sheet with the same pages. Argument: the number of runs.
#include "driver/editor.h"
#include "measure.h"

#include <cstdio>
#include <cstdlib>
#include <map>

constexpr int DefaultRuns = 21;
// Wine's server needs this time to clean up after a process.
constexpr DWORD SettleMilliseconds = 60;
constexpr double GiveUpMilliseconds = 20000;

constexpr wchar_t Editor[] = L"QBSettings.exe";
constexpr wchar_t BareSheet[] = L"bare_sheet.exe";

static void End(const EditorProcess& process, const Sheet& sheet)
{
    process.EndBy(IDCANCEL, sheet);
    Sleep(SettleMilliseconds);
}

static double TimeStart(const wchar_t* program)
{
    const double start = Milliseconds();
    const EditorProcess process(L"", program);
    HWND window = nullptr;
    // The driver's own interval would be too long.
    while (!IsWindowVisible(window) && process.Runs() && Milliseconds() - start < GiveUpMilliseconds)
    {
        Sleep(1);
        window = FindWindowW(nullptr, SheetTitle);
    }
    const double time = Milliseconds() - start;
    End(process, Sheet(window));
    return time;
}

// The keys are the titles of the pages.
using PageTimes = std::map<std::wstring, Times>;

// Adds the times from the selection of a page until it is painted, without the first page, which opens with
// the sheet. Returns the titles.
static std::vector<std::wstring> TimePages(const wchar_t* program, PageTimes& times)
{
    const EditorProcess process(L"", program);
    const Sheet sheet = process.WaitForSheet();
    std::vector<std::wstring> titles;
    for (int index = 1; index < sheet.PageCount(); ++index)
    {
        const double start = Milliseconds();
        sheet.SelectIndex(index);
        RedrawWindow(sheet.Page(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        const double time = Milliseconds() - start;
        titles.push_back(Form(sheet.Page()).Title());
        times[titles.back()].push_back(time);
    }
    End(process, sheet);
    return titles;
}

// Prints medians and minima. Disturbances can only add time, so the minima vary least.
static void Print(const wchar_t* name, const Times& times, const Times& floor)
{
    const double least = *std::min_element(times.begin(), times.end());
    const double leastFloor = *std::min_element(floor.begin(), floor.end());
    std::printf("  %-28ls%8.1f%8.1f%8.3f%10.1f%8.1f%8.3f\n", name, Median(times), Median(floor),
                Median(times) / Median(floor), least, leastFloor, least / leastFloor);
}

int main(int argc, char** argv)
{
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : DefaultRuns;
    Times editor;
    Times bare;
    PageTimes pages;
    PageTimes barePages;
    std::vector<std::wstring> titles;
    for (int run = 0; run < runs; ++run)
    {
        bare.push_back(TimeStart(BareSheet));
        editor.push_back(TimeStart(Editor));
        TimePages(BareSheet, barePages);
        titles = TimePages(Editor, pages);
    }
    std::printf("%3d runs, ms                      median    bare   ratio     least    bare   ratio\n", runs);
    Print(L"start to visible sheet", editor, bare);
    std::printf("first display of a page\n");
    for (const std::wstring& title : titles)
    {
        Print(title.c_str(), pages[title], barePages[title]);
    }
    return 0;
}

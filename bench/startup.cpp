// The time from the start of the editor's process to its visible sheet, and of each page's first display;
// beside bare sheets with an empty page, with the editor's first page, and with all of its pages. Argument:
// the number of runs.
#include "driver/editor.h"
#include "measure.h"

#include <cstdio>
#include <cstdlib>
#include <map>

namespace
{
constexpr int DefaultRuns = 21;
// Until Wine's server has cleared away a program that has ended.
constexpr DWORD SettleMilliseconds = 60;
constexpr double GiveUpMilliseconds = 20000;

constexpr wchar_t Editor[] = L"QBSettings.exe";
constexpr wchar_t BareSheet[] = L"bare_sheet.exe";

void End(const EditorProcess& process, const Sheet& sheet)
{
    process.EndBy(IDCANCEL, sheet);
    Sleep(SettleMilliseconds);
}

double TimeStart(const wchar_t* program, const wchar_t* arguments)
{
    const double start = Milliseconds();
    const EditorProcess process(arguments, program);
    HWND window = nullptr;
    // More often than the driver looks, whose steps are a tenth of the start.
    while (!IsWindowVisible(window) && process.Runs() && Milliseconds() - start < GiveUpMilliseconds)
    {
        Sleep(1);
        window = FindWindowW(nullptr, SheetTitle);
    }
    const double time = Milliseconds() - start;
    End(process, Sheet(window));
    return time;
}

// By the titles of the pages.
using PageTimes = std::map<std::wstring, Times>;

// Adds the times from the change of page until it is painted. The first page opens with the sheet. Gives the
// titles.
std::vector<std::wstring> TimePages(const wchar_t* program, const wchar_t* arguments, PageTimes& times)
{
    const EditorProcess process(arguments, program);
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

// The least is the least noisy: noise only ever adds.
void Print(const wchar_t* name, const Times& times, const Times& floor)
{
    const double least = *std::min_element(times.begin(), times.end());
    const double leastFloor = *std::min_element(floor.begin(), floor.end());
    std::printf("  %-28ls%8.1f%8.1f%8.3f%10.1f%8.1f%8.3f\n", name, Median(times), Median(floor),
                Median(times) / Median(floor), least, leastFloor, least / leastFloor);
}
}  // namespace

int main(int argc, char** argv)
{
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : DefaultRuns;
    Times editor;
    Times empty;
    Times firstPage;
    PageTimes pages;
    PageTimes barePages;
    std::vector<std::wstring> titles;
    {
        const std::jthread awake = KeepAwake();
        for (int run = 0; run < runs; ++run)
        {
            empty.push_back(TimeStart(BareSheet, L"empty"));
            firstPage.push_back(TimeStart(BareSheet, L"first"));
            editor.push_back(TimeStart(Editor, L""));
            TimePages(BareSheet, L"all", barePages);
            titles = TimePages(Editor, L"", pages);
        }
    }
    std::printf("%3d runs, ms                      median    bare   ratio     least    bare   ratio\n", runs);
    std::printf("start to visible sheet\n");
    Print(L"beside an empty sheet", editor, empty);
    Print(L"beside the first page alone", editor, firstPage);
    std::printf("first display of a page\n");
    for (const std::wstring& title : titles)
    {
        Print(title.c_str(), pages[title], barePages[title]);
    }
    return 0;
}

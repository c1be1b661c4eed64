// How long the editor takes from the start of its process to the visible sheet, and each page when it is
// opened for the first time; beside bare sheets with an empty page, with the editor's first page, and with
// all of its pages. Arguments: the number of runs.
#include "driver/editor.h"
#include "measure.h"

#include <cstdio>
#include <cstdlib>

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

// From the change of page until it is painted; by page, but for the first one, which comes up with the sheet.
void TimePages(const wchar_t* program, const wchar_t* arguments, std::vector<Times>& times,
               std::vector<std::wstring>& titles)
{
    const EditorProcess process(arguments, program);
    const Sheet sheet = process.WaitForSheet();
    titles.clear();
    times.resize(static_cast<size_t>(sheet.PageCount()) - 1);
    for (size_t index = 0; index < times.size(); ++index)
    {
        const double start = Milliseconds();
        sheet.SelectIndex(static_cast<int>(index) + 1);
        RedrawWindow(sheet.Page(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        times[index].push_back(Milliseconds() - start);
        titles.push_back(Form(sheet.Page()).Title());
    }
    End(process, sheet);
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
    std::vector<Times> pages;
    std::vector<Times> barePages;
    std::vector<std::wstring> titles;
    {
        const std::jthread awake = KeepAwake();
        for (int run = 0; run < runs; ++run)
        {
            empty.push_back(TimeStart(BareSheet, L"0"));
            firstPage.push_back(TimeStart(BareSheet, L"1"));
            editor.push_back(TimeStart(Editor, L""));
            TimePages(BareSheet, L"9", barePages, titles);
            TimePages(Editor, L"", pages, titles);
        }
    }
    std::printf("%3d runs, ms                      median    bare   ratio     least    bare   ratio\n", runs);
    std::printf("start to visible sheet\n");
    Print(L"beside an empty sheet", editor, empty);
    Print(L"beside the first page alone", editor, firstPage);
    std::printf("first display of a page\n");
    for (size_t index = 0; index < titles.size(); ++index)
    {
        Print(titles[index].c_str(), pages[index], barePages[index]);
    }
    return 0;
}

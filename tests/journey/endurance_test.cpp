// The program starts, and shows its pages, many times: ten times, or as often as QB_ENDURANCE says.
#include "driver/editor.h"
#include "support/registry.h"

#include <psapi.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>

const int Times = std::getenv("QB_ENDURANCE") != nullptr ? std::atoi(std::getenv("QB_ENDURANCE")) : 10;

// Resources that a process could leak.
using Counts = std::map<std::string, size_t>;

constexpr std::pair<UINT, WPARAM> Closings[] = {
    {WM_COMMAND, IDOK}, {WM_COMMAND, IDCANCEL}, {WM_SYSCOMMAND, SC_CLOSE}};

static size_t WindowsBelow(HWND parent, DWORD process)
{
    size_t count = 0;
    for (HWND window = nullptr; (window = FindWindowExW(parent, window, nullptr, nullptr)) != nullptr;)
    {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        count += (owner == process ? 1 : 0) + WindowsBelow(window, process);
    }
    return count;
}

// GetGuiResources returns 0 on Wine, so the windows are counted one by one.
static Counts Count(const EditorProcess& editor)
{
    PROCESS_MEMORY_COUNTERS memory = {};
    EXPECT_TRUE(GetProcessMemoryInfo(editor.Handle(), &memory, sizeof(memory)));
    DWORD handles = 0;
    EXPECT_TRUE(GetProcessHandleCount(editor.Handle(), &handles));
    return {
        {"windows", WindowsBelow(GetDesktopWindow(), editor.Id()) + WindowsBelow(HWND_MESSAGE, editor.Id())},
        {"handles", handles},
        {"kilobytes", memory.PagefileUsage / 1024}};
}

using EnduranceJourney = SettingsTest;

TEST_F(EnduranceJourney, EachStartOpensTheSheetAndEnds)
{
    for (int start = 0; start < Times; ++start)
    {
        const EditorProcess editor;
        const Sheet sheet = editor.WaitForSheet();
        if (start % 2 == 0)
        {
            ASSERT_TRUE(EditorProcess().WaitForEnd());
        }
        const auto [message, wParam] = Closings[start % std::size(Closings)];
        PostMessageW(sheet.Window(), message, wParam, 0);
        ASSERT_TRUE(editor.WaitForEnd());
    }
}

TEST_F(EnduranceJourney, PagesLeakNothing)
{
    const EditorProcess editor;
    const Sheet sheet = editor.WaitForSheet();
    Counts before;
    for (int show = 0; show < Times; ++show)
    {
        // Some resources are allocated once, during the first shows.
        before = show == std::min(10, Times / 2) ? Count(editor) : before;
        ASSERT_EQ(sheet.OpenAll().size(), static_cast<size_t>(sheet.PageCount()));
    }
    const Counts now = Count(editor);
    for (const auto& [what, count] : before)
    {
        std::cout << what << ": " << count << ", at the end " << now.at(what) << '\n';
        // Wine does not count handles.
        EXPECT_TRUE(count > 0 || (IsWine() && what == "handles")) << what;
        // The heap grows in steps until about the hundredth show, and shrinks late.
        EXPECT_LE(now.at(what), count + (what == "kilobytes" ? 1024 : 0)) << what;
    }
}

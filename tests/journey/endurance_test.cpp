// Whether the program lasts: starts, pages and kills in great numbers. A few of each, unless QB_ENDURANCE
// says how many starts; then two and a half times as many shows of each page and half as many kills.
#include "driver/editor.h"
#include "support/settings.h"

#include <psapi.h>
#include <winternl.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <random>

namespace {
const int Starts = std::getenv("QB_ENDURANCE") != nullptr ? std::atoi(std::getenv("QB_ENDURANCE")) : 6;
// As many go before the first count: what is made once is there then.
const int WarmUp = std::min(10, Starts / 2);

// What a program could leave behind or pile up: windows of all programs, handles and memory of one process.
using Counts = std::map<std::string, size_t>;

constexpr std::pair<UINT, WPARAM> Closings[] = {{WM_COMMAND, IDOK}, {WM_COMMAND, IDCANCEL}, {WM_SYSCOMMAND, SC_CLOSE}};

size_t WindowsBelow(HWND parent) {
    size_t count = 0;
    for (HWND window = nullptr; (window = FindWindowExW(parent, window, nullptr, nullptr)) != nullptr;) {
        count += 1 + WindowsBelow(window);
    }
    return count;
}

// In these ways, as Wine gives 0 for GetProcessHandleCount and GetGuiResources.
Counts Count(DWORD id) {
    // The number of handles, a word that is kept free, and five words for each handle; its process is the
    // second.
    std::vector<ULONG_PTR> list(size_t{1} << 17);
    constexpr auto ExtendedHandles = static_cast<SYSTEM_INFORMATION_CLASS>(64);
    NtQuerySystemInformation(ExtendedHandles, list.data(), ULONG{8} << 17, nullptr);
    size_t handles = 0;
    for (size_t index = 0; index < list[0]; ++index) { handles += list[index * 5 + 3] == id ? 1 : 0; }
    PROCESS_MEMORY_COUNTERS memory = {};
    const HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, id);
    EXPECT_TRUE(GetProcessMemoryInfo(process, &memory, sizeof(memory)));
    CloseHandle(process);
    return {{"windows", WindowsBelow(GetDesktopWindow()) + WindowsBelow(HWND_MESSAGE)},
            {"handles", handles},
            {"kilobytes", memory.PagefileUsage / 1024}};
}

// A heap grows by steps, of which the last comes within the first hundred shows, and shrinks late.
bool HasGrown(const Counts& before, const Counts& now, const std::string& what) {
    return now.at(what) > before.at(what) + (what == "kilobytes" ? 1024 : 0);
}

void ExpectNoGrowth(const Counts& before, DWORD id) {
    Sleep(500);  // what has just ended takes a moment to go
    const Counts now = Count(id);
    for (const auto& [what, count] : before) {
        std::cout << what << ": " << count << ", at last " << now.at(what) << '\n';
        EXPECT_FALSE(HasGrown(before, now, what)) << what;
    }
}

using EnduranceJourney = SettingsTest;
}  // namespace

TEST_F(EnduranceJourney, CountsShowWhatIsLeaked) {
    const Counts before = Count(GetCurrentProcessId());
    const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const HWND window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr);
    const std::string memory(size_t{2} << 20, 'x');
    const Counts now = Count(GetCurrentProcessId());
    for (const char* what : {"windows", "handles", "kilobytes"}) {
        EXPECT_TRUE(HasGrown(before, now, what)) << what << " with " << memory.size();
    }
    DestroyWindow(window);
    CloseHandle(event);
}

TEST_F(EnduranceJourney, StartsLeaveNothingBehind) {
    // Its own handles end with a process. What it could leave lies with the one that has the desktop.
    DWORD desktop = 0;
    GetWindowThreadProcessId(GetDesktopWindow(), &desktop);
    Counts before;
    for (int start = 0; start < Starts; ++start) {
        before = start == WarmUp ? Count(desktop) : before;
        const EditorProcess editor;
        const Sheet sheet = editor.WaitForSheet();
        if (start % 2 == 0) { ASSERT_TRUE(EditorProcess().WaitForEnd()); }
        const auto [message, wParam] = Closings[start % std::size(Closings)];
        PostMessageW(sheet.Window(), message, wParam, 0);
        ASSERT_TRUE(editor.WaitForEnd());
    }
    ExpectNoGrowth(before, desktop);
}

TEST_F(EnduranceJourney, PagesPileNothingUp) {
    const EditorProcess editor;
    const Sheet sheet = editor.WaitForSheet();
    Counts before;
    for (int show = 0; show < Starts * 5 / 2; ++show) {
        before = show == WarmUp ? Count(editor.Id()) : before;
        ASSERT_EQ(sheet.OpenAll().size(), 9U);
    }
    ExpectNoGrowth(before, editor.Id());
}

// A value is whole, for the registry takes it in one call. Only a table of ports is removed before it is
// stored, so that its ports, or their types, may be missing.
TEST_F(EnduranceJourney, AKilledApplyLeavesEachValueOldOrNew) {
    std::vector<Setting> changing = AllSettings();
    std::erase_if(changing, [](const Setting& setting) { return setting.initial == setting.changed; });
    std::mt19937 random(GetTickCount());
    int cutShort = 0;
    int kill = 0;
    // A busy machine may let the writing end before each kill: one at least is to come within it.
    for (; kill < Starts / 2 || (cutShort == 0 && kill < 50); ++kill) {
        StoreTree(TreeOf(AllSettings(), &Setting::changed));
        {
            const EditorProcess editor;
            const Sheet sheet = editor.WaitForSheet();
            sheet.OpenAll();
            StoreTree(TreeOf(AllSettings(), &Setting::initial));
            const Setting& last = changing[random() % changing.size()];
            PostMessageW(sheet.ApplyButton(), BM_CLICK, 0, 0);
            while (Stored(last.key, last.name) == last.initial && editor.Runs()) {}
        }
        size_t olds = 0;
        for (const Setting& setting : changing) {
            const StoredValue found = Stored(setting.key, setting.name);
            olds += found == setting.initial ? 1 : 0;
            EXPECT_TRUE(found == setting.changed || found == setting.initial)
                << Printable(setting.name) << testing::PrintToString(found);
        }
        for (const Text& table : {keys::ClientPorts, keys::ServerPorts}) {
            const StoredValue found = Stored(table + L"\\9001", L"PacketType");
            EXPECT_TRUE(found == Dword(0xFFFFFFFF) || found == Absent) << testing::PrintToString(found);
        }
        cutShort += olds != 0 && olds != changing.size() ? 1 : 0;
        const EditorProcess next;
        const Sheet sheet = next.WaitForSheet();
        ASSERT_EQ(sheet.OpenAll().size(), 9U);
        ASSERT_TRUE(next.EndBy(IDOK, sheet));
    }
    std::cout << cutShort << " of " << kill << " kills came within the writing\n";
    EXPECT_GT(cutShort, 0);
}

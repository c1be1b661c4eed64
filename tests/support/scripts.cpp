#include "support/scripts.h"

#include "shell/QBSettingsApp.h"

#include <commctrl.h>
#include <prsht.h>

#include <algorithm>

namespace {
constexpr UINT LookMilliseconds = 5;
constexpr ULONGLONG GiveUpMilliseconds = 15000;

struct Wait {
    Text title;
    std::vector<HWND> before;  // windows that stood already
    std::function<void(HWND)> act;
    bool mustCome;
    bool again;  // for each further one
    ULONGLONG giveUp = GetTickCount64() + GiveUpMilliseconds;
};

std::map<UINT_PTR, Wait>& Waits() {
    static std::map<UINT_PTR, Wait> waits;
    return waits;
}

void End(UINT_PTR timer) {
    KillTimer(nullptr, timer);
    Waits().erase(timer);
}

void CALLBACK Look(HWND, UINT, UINT_PTR timer, DWORD) {
    const auto found = Waits().find(timer);
    if (found == Waits().end()) { return; }
    const Wait wait = found->second;
    for (const HWND window : WindowsOf(GetCurrentProcessId())) {
        if (std::find(wait.before.begin(), wait.before.end(), window) == wait.before.end() &&
            Form(window).Title() == wait.title) {
            if (!wait.again) { End(timer); }
            wait.act(window);
            return;
        }
    }
    if (wait.mustCome && GetTickCount64() > wait.giveUp) {
        ADD_FAILURE() << "no window \"" << Printable(wait.title) << "\" has come";
        End(timer);
        // What stands instead would wait for ever.
        PostMessageW(GetActiveWindow(), WM_CLOSE, 0, 0);
    }
}

UINT_PTR AddWait(const Text& title, std::function<void(HWND)> act, bool mustCome, bool again) {
    const UINT_PTR timer = SetTimer(nullptr, 0, LookMilliseconds, Look);
    Waits()[timer] = {title, WindowsOf(GetCurrentProcessId()), std::move(act), mustCome, again};
    return timer;
}

LRESULT CALLBACK Note(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR list) {
    Events& events = *reinterpret_cast<Events*>(list);
    if (message == PSM_CHANGED || message == PSM_UNCHANGED) {
        events.emplace_back(message == PSM_CHANGED ? "marked" : "unmarked");
    } else if (message == WM_COMMAND && lParam != 0 && (HIWORD(wParam) == EN_CHANGE || HIWORD(wParam) == BN_CLICKED)) {
        events.push_back(std::to_string(LOWORD(wParam)) + (HIWORD(wParam) == EN_CHANGE ? " changed" : " clicked"));
    }
    return DefSubclassProc(window, message, wParam, lParam);
}
}  // namespace

bool TryRunEditor(const std::function<void(Sheet&)>& script) {
    // The tests are the first instance, whatever else runs on the machine.
    g_dwInstanceMutexError = ERROR_SUCCESS;
    bool shown = false;
    const UINT_PTR sheetWait = AddWait(
        SheetTitle,
        [&](HWND window) {
            shown = true;
            Sheet sheet(window);
            script(sheet);
            if (sheet.IsOpen()) { sheet.Cancel(); }
        },
        false, false);
    const UINT_PTR boxWait = AddWait(
        titles::Error, [](HWND window) { SendMessageW(window, WM_COMMAND, IDOK, 0); }, false, false);
    EXPECT_FALSE(AfxGetApp()->InitInstance());
    End(sheetWait);
    End(boxWait);
    return shown;
}

void RunEditor(const std::function<void(Sheet&)>& script) { EXPECT_TRUE(TryRunEditor(script)) << "no sheet"; }

void RunOnTab(const Text& tab, const std::function<void(Sheet&)>& script) {
    RunEditor([&](Sheet& sheet) {
        ASSERT_TRUE(sheet.Select(tab)) << Printable(tab);
        script(sheet);
    });
}

void WithDialog(const Text& title, const std::function<void(const Form&)>& script, const std::function<void()>& open) {
    bool opened = false;
    const UINT_PTR timer = AddWait(
        title,
        [&](HWND window) {
            opened = true;
            script(Form(window));
            // Comes to nothing if the script has ended the dialog, which is gone by then.
            PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
        },
        true, false);
    open();
    End(timer);
    EXPECT_TRUE(opened) << Printable(title);
}

int CountPrompts(const std::function<void()>& steps) {
    int count = 0;
    const UINT_PTR timer = AddWait(
        AfxGetApp()->m_strAppName.GetString(),
        [&count](HWND window) {
            ++count;
            EXPECT_FALSE(IsWindowEnabled(GetWindow(window, GW_OWNER))) << "stands before the window in use";
            SendMessageW(window, WM_COMMAND, IDOK, 0);
        },
        false, true);
    steps();
    End(timer);
    return count;
}

Events EventsOf(const Sheet& sheet, const std::function<void()>& steps) {
    Events events;
    const HWND windows[] = {sheet.Page(), sheet.Window()};
    for (const HWND window : windows) { SetWindowSubclass(window, Note, 1, reinterpret_cast<DWORD_PTR>(&events)); }
    steps();
    for (const HWND window : windows) { RemoveWindowSubclass(window, Note, 1); }
    return events;
}

void ForEachForm(const std::function<void(const Form&, const Text& name)>& check) {
    RunEditor([&check](const Sheet& sheet) {
        for (const Text& tab : AllTabs) {
            SCOPED_TRACE(Printable(tab));
            ASSERT_TRUE(sheet.Select(tab));
            check(sheet, tab);
        }
        sheet.Select(tabs::Media);
        for (const auto& [button, title] : {std::pair{1139, titles::AdvancedTCP}, {1190, titles::ClientPorts}}) {
            WithDialog(
                title, [&check, &name = title](const Form& dialog) { check(dialog, name); },
                [&sheet, id = button] { sheet.Click(id); });
        }
    });
}

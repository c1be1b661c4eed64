// Scripts of user steps, run from timers while the program waits in a modal loop.
#include "shell/QBSettingsApp.h"
#include "support/form.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace
{
constexpr UINT LookMilliseconds = 5;
constexpr ULONGLONG GiveUpMilliseconds = 15000;

struct Wait
{
    Text title;
    std::vector<HWND> before;  // windows that stood already
    std::function<void(HWND)> act;
    ULONGLONG giveUp;
    bool mustCome;
};

std::map<UINT_PTR, Wait>& Waits()
{
    static std::map<UINT_PTR, Wait> waits;
    return waits;
}

BOOL CALLBACK AddWindow(HWND window, LPARAM list)
{
    if (IsWindowVisible(window))
    {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    }
    return TRUE;
}

std::vector<HWND> VisibleWindows()
{
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), AddWindow, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

void Report(const Wait& wait)
{
    if (wait.mustCome)
    {
        ADD_FAILURE() << "no window \"" << Printable(wait.title) << "\" has come";
    }
}

void CALLBACK Look(HWND, UINT, UINT_PTR timer, DWORD)
{
    const auto found = Waits().find(timer);
    if (found == Waits().end())
    {
        return;
    }
    const std::vector<HWND>& before = found->second.before;
    for (const HWND window : VisibleWindows())
    {
        if (std::find(before.begin(), before.end(), window) == before.end() &&
            Form(window).Title() == found->second.title)
        {
            const Wait wait = std::move(found->second);
            KillTimer(nullptr, timer);
            Waits().erase(timer);
            wait.act(window);
            return;
        }
    }
    if (GetTickCount64() > found->second.giveUp)
    {
        Report(found->second);
        KillTimer(nullptr, timer);
        Waits().erase(timer);
        // What stands instead would wait for ever.
        PostMessageW(GetActiveWindow(), WM_CLOSE, 0, 0);
    }
}

void AddWait(const Text& title, std::function<void(HWND)> act, bool mustCome = true)
{
    const UINT_PTR timer = SetTimer(nullptr, 0, LookMilliseconds, Look);
    Waits()[timer] = {title, VisibleWindows(), std::move(act), GetTickCount64() + GiveUpMilliseconds,
                      mustCome};
}
}  // namespace

void EndWaits()
{
    for (const auto& [timer, wait] : Waits())
    {
        Report(wait);
        KillTimer(nullptr, timer);
    }
    Waits().clear();
}

bool TryRunEditor(const std::function<void(Sheet&)>& script)
{
    // The tests are the first instance, whatever else runs on the machine.
    g_dwInstanceMutexError = ERROR_SUCCESS;
    bool shown = false;
    AddWait(
        titles::Sheet,
        [&script, &shown](HWND window)
        {
            shown = true;
            Sheet sheet(window);
            script(sheet);
            if (sheet.IsOpen())
            {
                sheet.Cancel();
            }
        },
        false);
    AddWait(
        titles::Error, [](HWND window) { SendMessageW(window, WM_COMMAND, IDOK, 0); }, false);
    EXPECT_FALSE(AfxGetApp()->InitInstance());
    EndWaits();
    return shown;
}

void RunEditor(const std::function<void(Sheet&)>& script)
{
    EXPECT_TRUE(TryRunEditor(script)) << "no sheet";
}

void RunOnTab(const Text& tab, const std::function<void(Sheet&)>& script)
{
    RunEditor(
        [&](Sheet& sheet)
        {
            ASSERT_TRUE(sheet.Select(tab)) << Printable(tab);
            script(sheet);
        });
}

void WhenOpened(const Text& title, const std::function<void(Form&)>& script)
{
    AddWait(title,
            [script](HWND window)
            {
                Form form(window);
                script(form);
                // Comes to nothing if the script has ended the dialog, which is gone by then.
                PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
            });
}

void ExpectPrompt(int* count)
{
    AddWait(AfxGetApp()->m_strAppName.GetString(),
            [count](HWND window)
            {
                if (count != nullptr)
                {
                    ++*count;
                }
                SendMessageW(window, WM_COMMAND, IDOK, 0);
            });
}

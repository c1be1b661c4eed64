#include "driver/inprocess.h"

#include "shell/QBSettingsApp.h"

#include <algorithm>
#include <map>

namespace
{
constexpr UINT LookMilliseconds = 5;
constexpr ULONGLONG GiveUpMilliseconds = 30000;

struct Wait
{
    std::vector<Text> titles;
    std::vector<HWND> known;  // windows that were open before, or have been acted on
    std::function<void(const Form&)> act;
    int most;
    int count = 0;
    ULONGLONG giveUp = GetTickCount64() + GiveUpMilliseconds;
};

std::map<UINT_PTR, Wait*> waits;  // by their timers

void CALLBACK Look(HWND, UINT, UINT_PTR timer, DWORD)
{
    const auto found = waits.find(timer);
    if (found == waits.end())
    {
        return;
    }
    Wait& wait = *found->second;
    if (GetTickCount64() > wait.giveUp)
    {
        wait.count = wait.most = -1;
        // Closes a window that the script did not expect, which would otherwise stay open.
        PostMessageW(GetActiveWindow(), WM_CLOSE, 0, 0);
        wait.giveUp += 1000;
    }
    if (wait.count == wait.most)
    {
        return;
    }
    for (const HWND window : WindowsOf(GetCurrentThreadId()))
    {
        if (std::ranges::count(wait.known, window) == 0 &&
            std::ranges::count(wait.titles, Form(window).Title()) != 0)
        {
            wait.known.push_back(window);
            ++wait.count;
            wait.giveUp = ~0ULL;  // the action may take any time
            wait.act(Form(window));
            wait.giveUp = GetTickCount64() + GiveUpMilliseconds;
            return;
        }
    }
}

// The program runs in a fiber of its own, so that the caller continues while the sheet waits for input.
void* callerFiber = nullptr;
HWND opened = nullptr;  // while the program runs

void CALLBACK RunProgram(void*)
{
    const auto run = [] { AfxGetApp()->InitInstance(); };
    const auto giveControl = [](const Form& form) {
        opened = form.Window();
        SwitchToFiber(callerFiber);
    };
    for (;;)
    {
        if (ActDuring(run, {SheetTitle, ErrorTitle}, giveControl) != 1)
        {
            EndProgram("The editor opened neither its sheet nor its error box, or did not close it.");
        }
        opened = nullptr;
        SwitchToFiber(callerFiber);
    }
}

void* ProgramFiber()
{
    static void* const fiber = [] {
        callerFiber = ConvertThreadToFiber(nullptr);
        // This size is enough under sanitizers. A larger one would leave Wine too little space for the
        // stacks of threads.
        return CreateFiber(size_t{1} << 21, RunProgram, nullptr);
    }();
    return fiber;
}

HWND Start()
{
    // Makes the program the first instance, even if another one runs on this machine.
    g_dwInstanceMutexError = ERROR_SUCCESS;
    SwitchToFiber(ProgramFiber());
    return opened;
}
}  // namespace

int ActDuring(const std::function<void()>& steps, const std::vector<Text>& titles,
              const std::function<void(const Form&)>& act, int most)
{
    Wait wait = {titles, WindowsOf(GetCurrentThreadId()), act, most};
    const UINT_PTR timer = SetTimer(nullptr, 0, LookMilliseconds, Look);
    waits[timer] = &wait;
    steps();
    KillTimer(nullptr, timer);
    waits.erase(timer);
    return wait.count;
}

Editor::Editor(const Text& tab) : Sheet(Start())
{
    if (!tab.empty() && !Select(tab))
    {
        EndProgram("The sheet has no page \"" + Printable(tab) + "\", or does not open it.");
    }
}

Editor::~Editor()
{
    if (!HasSheet() || IsOpen())
    {
        SendMessageW(Window(), WM_COMMAND, IDCANCEL, 0);
    }
    if (opened != nullptr)
    {
        SwitchToFiber(ProgramFiber());
    }
}

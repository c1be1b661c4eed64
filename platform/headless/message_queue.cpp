// Messages: sent at once, or posted and fetched.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <optional>

#include "window.h"

namespace headless
{
namespace
{
struct Queue
{
    std::deque<MSG> posted;
    std::optional<int> quitCode;
    MSG last = {};
    unsigned sending = 0;
};

Queue& MessageQueue()
{
    static auto& queue = *new Queue;
    return queue;
}

MSG MakeMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    MSG made = {window, message, wParam, lParam, GetTickCount(), {}};
    GetCursorPos(&made.pt);
    return made;
}

bool TakePosted(LPMSG message, HWND window, UINT first, UINT last, bool take)
{
    std::deque<MSG>& posted = MessageQueue().posted;
    const auto found =
        std::find_if(posted.begin(), posted.end(),
                     [&](const MSG& candidate) { return FitsFilter(candidate, window, first, last); });
    if (found == posted.end())
    {
        return false;
    }
    *message = *found;
    if (take)
    {
        posted.erase(found);
    }
    return true;
}

// The quit message passes every filter, but only once nothing posted is left to pass it.
bool TakeQuit(LPMSG message, bool take)
{
    std::optional<int>& quitCode = MessageQueue().quitCode;
    if (!quitCode)
    {
        return false;
    }
    *message = MakeMessage(nullptr, WM_QUIT, static_cast<WPARAM>(*quitCode), 0);
    if (take)
    {
        quitCode.reset();
    }
    return true;
}

[[noreturn]] void Deadlock()
{
    std::fputs("headless: the program waits for a message that can never come\n", stderr);
    std::abort();
}

void SleepToNextTimer()
{
    if (!HasTimers())
    {
        Deadlock();
    }
    Sleep(TimeToNextTimer());
}
}  // namespace

bool FitsFilter(const MSG& message, HWND window, UINT first, UINT last)
{
    if ((first != 0 || last != 0) && (message.message < first || message.message > last))
    {
        return false;
    }
    if (window == reinterpret_cast<HWND>(LONG_PTR{-1}))
    {
        return message.hwnd == nullptr;
    }
    return window == nullptr || Contains(window, message.hwnd);
}

void DropMessages(HWND window)
{
    std::erase_if(MessageQueue().posted, [&](const MSG& message) { return message.hwnd == window; });
}

LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const Window* found = Find(window);
    if (found == nullptr)
    {
        return 0;
    }
    unsigned& sending = MessageQueue().sending;
    ++sending;
    const LRESULT result = found->procedure(window, message, wParam, lParam);
    --sending;
    return result;
}
}  // namespace headless

using namespace headless;

LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (window == HWND_BROADCAST)
    {
        for (HWND topLevel : TopLevelWindows())
        {
            Send(topLevel, message, wParam, lParam);
        }
        return TRUE;
    }
    return Resolve(window) == nullptr ? 0 : Send(window, message, wParam, lParam);
}

BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    std::vector<HWND> targets = {window};
    if (window == HWND_BROADCAST)
    {
        targets = TopLevelWindows();
    }
    else if (window != nullptr && Resolve(window) == nullptr)
    {
        return FALSE;
    }
    for (HWND target : targets)
    {
        MessageQueue().posted.push_back(MakeMessage(target, message, wParam, lParam));
    }
    return TRUE;
}

void WINAPI PostQuitMessage(int exitCode)
{
    MessageQueue().quitCode = exitCode;
}

BOOL WINAPI PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove)
{
    const bool take = (remove & PM_REMOVE) != 0;
    if (!TakePosted(message, window, first, last, take) && !TakeQuit(message, take) &&
        !DueTimer(message, window, first, last, take))
    {
        return FALSE;
    }
    if (take)
    {
        MessageQueue().last = *message;
    }
    CallHooks(WH_GETMESSAGE, 0, remove, ToParam(message));
    return TRUE;
}

BOOL WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last)
{
    const bool ofThread = window == nullptr || window == reinterpret_cast<HWND>(LONG_PTR{-1});
    if (!ofThread && Resolve(window) == nullptr)
    {
        return -1;
    }
    while (!PeekMessageW(message, window, first, last, PM_REMOVE))
    {
        SleepToNextTimer();
    }
    return message->message != WM_QUIT;
}

LRESULT WINAPI DispatchMessageW(const MSG* message)
{
    if (message->message == WM_TIMER && message->lParam != 0)
    {
        reinterpret_cast<TIMERPROC>(message->lParam)(message->hwnd, WM_TIMER, message->wParam,
                                                     GetTickCount());
        return 0;
    }
    return Send(message->hwnd, message->message, message->wParam, message->lParam);
}

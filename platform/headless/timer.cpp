// Timers. One is served when nothing else waits; periods that were missed count once.
#include <algorithm>

#include "window.h"

namespace headless
{
namespace
{
struct Timer
{
    HWND window;
    UINT_PTR id;
    UINT period;
    ULONGLONG due;
    TIMERPROC procedure;
};

std::vector<Timer>& AllTimers()
{
    static auto& timers = *new std::vector<Timer>;
    return timers;
}

std::vector<Timer>::iterator Search(HWND window, UINT_PTR id)
{
    return std::find_if(AllTimers().begin(), AllTimers().end(),
                        [&](const Timer& timer) { return timer.window == window && timer.id == id; });
}

// Timers without a window are named by the system.
UINT_PTR NewId()
{
    static UINT_PTR next = 0x7FFF;
    while (Search(nullptr, next) != AllTimers().end())
    {
        --next;
    }
    return next--;
}
}  // namespace

void DropTimers(HWND window)
{
    std::erase_if(AllTimers(), [&](const Timer& timer) { return timer.window == window; });
}

bool HasTimers()
{
    return !AllTimers().empty();
}

DWORD TimeToNextTimer()
{
    const auto next =
        std::min_element(AllTimers().begin(), AllTimers().end(),
                         [](const Timer& left, const Timer& right) { return left.due < right.due; });
    const ULONGLONG now = GetTickCount64();
    return next == AllTimers().end() || next->due <= now ? 0 : static_cast<DWORD>(next->due - now);
}

bool DueTimer(LPMSG message, HWND window, UINT first, UINT last, bool take)
{
    const ULONGLONG now = GetTickCount64();
    const auto asMessage = [](const Timer& timer)
    { return MSG{timer.window, WM_TIMER, timer.id, ToParam(timer.procedure), GetTickCount(), {}}; };
    Timer* earliest = nullptr;
    for (Timer& timer : AllTimers())
    {
        if (timer.due <= now && (earliest == nullptr || timer.due < earliest->due) &&
            FitsFilter(asMessage(timer), window, first, last))
        {
            earliest = &timer;
        }
    }
    if (earliest == nullptr)
    {
        return false;
    }
    *message = asMessage(*earliest);
    GetCursorPos(&message->pt);
    if (take)
    {
        earliest->due = now + earliest->period;
    }
    return true;
}
}  // namespace headless

using namespace headless;

UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure)
{
    if (window != nullptr && Resolve(window) == nullptr)
    {
        return 0;
    }
    auto timer = Search(window, id);
    if (timer == AllTimers().end())
    {
        AllTimers().push_back({window, window == nullptr ? NewId() : id, 0, 0, nullptr});
        timer = AllTimers().end() - 1;
    }
    timer->period = std::clamp<UINT>(milliseconds, USER_TIMER_MINIMUM, USER_TIMER_MAXIMUM);
    timer->due = GetTickCount64() + timer->period;
    timer->procedure = procedure;
    return timer->id == 0 ? 1 : timer->id;
}

BOOL WINAPI KillTimer(HWND window, UINT_PTR id)
{
    const auto timer = Search(window, id);
    if (timer == AllTimers().end())
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    AllTimers().erase(timer);
    return TRUE;
}

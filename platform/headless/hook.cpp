// Hooks. The newest of a kind is called first and decides whether the older ones are.
#include <algorithm>
#include <optional>

#include "fault.h"
#include "window.h"

namespace headless
{
namespace
{
struct Hook
{
    ULONG_PTR number;  // grows, and is the handle
    int type;
    HOOKPROC procedure;
};

std::vector<Hook>& AllHooks()
{
    static auto& hooks = *new std::vector<Hook>;
    return hooks;
}

std::optional<Hook> NewestBelow(ULONG_PTR number, int type)
{
    const std::vector<Hook>& hooks = AllHooks();
    const auto found =
        std::find_if(hooks.rbegin(), hooks.rend(),
                     [&](const Hook& hook) { return hook.type == type && hook.number < number; });
    return found == hooks.rend() ? std::nullopt : std::optional(*found);
}

// The hook whose procedure runs. A hook that was taken off meanwhile still knows what is older.
std::optional<Hook> running;

LRESULT Run(const std::optional<Hook>& hook, int code, WPARAM wParam, LPARAM lParam)
{
    if (!hook)
    {
        return 0;
    }
    const std::optional<Hook> outer = running;
    running = hook;
    const LRESULT result = hook->procedure(code, wParam, lParam);
    running = outer;
    return result;
}
}  // namespace

LRESULT CallHooks(int hookType, int code, WPARAM wParam, LPARAM lParam)
{
    return Run(NewestBelow(~ULONG_PTR{0}, hookType), code, wParam, lParam);
}
}  // namespace headless

using namespace headless;

// WH_CBT, WH_GETMESSAGE and WH_MSGFILTER are called; other kinds of hooks are refused.
HHOOK WINAPI SetWindowsHookExW(int hookType, HOOKPROC procedure, HINSTANCE, DWORD)
{
    static ULONG_PTR last = 0x1000;
    DWORD error = 0;
    if (TakeFault("SetWindowsHookExW", &error))
    {
        SetLastError(error);
        return nullptr;
    }
    if (procedure == nullptr || (hookType != WH_CBT && hookType != WH_GETMESSAGE && hookType != WH_MSGFILTER))
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    AllHooks().push_back({++last, hookType, procedure});
    return reinterpret_cast<HHOOK>(last);
}

BOOL WINAPI UnhookWindowsHookEx(HHOOK hook)
{
    const bool found = std::erase_if(AllHooks(), [&](const Hook& candidate)
                                     { return candidate.number == reinterpret_cast<ULONG_PTR>(hook); }) != 0;
    if (!found)
    {
        SetLastError(ERROR_INVALID_HOOK_HANDLE);
    }
    return found;
}

// The handle is not needed: the hook that calls this is the one that runs.
LRESULT WINAPI CallNextHookEx(HHOOK, int code, WPARAM wParam, LPARAM lParam)
{
    return running ? Run(NewestBelow(running->number, running->type), code, wParam, lParam) : 0;
}

BOOL WINAPI CallMsgFilterW(LPMSG message, int code)
{
    return CallHooks(WH_MSGFILTER, code, 0, ToParam(message)) != 0;
}

#include "support/calls.h"

#include "driver/interpose.h"
#include "support/registry.h"

#include <objbase.h>
#include <rpc.h>

#include <cstdlib>
#include <type_traits>

namespace
{
struct State
{
    std::string refused;  // a prefix
    unsigned left = 0;    // calls until one is refused; 0: none is
    LONG status = 0;
    bool andLater = false;
    std::vector<Call> made;
    std::map<HKEY, Text> keys;
};

// Static constructors of the program already make calls.
[[gnu::init_priority(101)]] State g_state;

Text PathOf(HKEY key, LPCWSTR below = nullptr)
{
    const auto found = g_state.keys.find(key);
    Text path = found != g_state.keys.end() ? found->second : Text();
    return below == nullptr ? path : path + (path.empty() ? _T("") : _T("\\")) + below;
}

// Lists a call. Returns the status that it is refused with, or 0.
LONG Note(const Call& call)
{
    if (calls::pauses > 0)
    {
        return 0;
    }
    g_state.made.push_back(call);
    if (g_state.left == 0 || !call.function.starts_with(g_state.refused) || --g_state.left > 0)
    {
        return 0;
    }
    g_state.left = g_state.andLater ? 1 : 0;
    calls::hasRefused = true;
    return g_state.status;
}

// What the arguments of a call say about it.
Call CallOf(const std::string& function, ...)
{
    return {function, {}, {}};
}

// The text is the name of a value, or of a key below this one.
Call CallOf(const std::string& function, HKEY key, LPCWSTR text, ...)
{
    const bool isValue = function.find("Value") != std::string::npos;
    return {function, PathOf(key, isValue ? nullptr : text), isValue ? text : _T("")};
}

template <class Function>
Function* System(const char* name)
{
    return reinterpret_cast<Function*>(SystemFunction(name));
}

constexpr LPCWSTR ScratchPath = _T("Software\\Quorvex Bench Settings scratch");

void DeleteScratchKey()
{
    System<decltype(RegDeleteTreeW)>("RegDeleteTreeW")(HKEY_CURRENT_USER, ScratchPath);
}

HKEY MakeScratchKey()
{
    DeleteScratchKey();
    HKEY key = nullptr;
    System<decltype(RegCreateKeyExW)>("RegCreateKeyExW")(HKEY_CURRENT_USER, ScratchPath, 0, nullptr, 0,
                                                         KEY_ALL_ACCESS, nullptr, &key, nullptr);
    std::atexit(DeleteScratchKey);
    return key;
}

// The key that the program's call uses: the scratch key takes the place of HKEY_LOCAL_MACHINE.
HKEY Redirect(HKEY key)
{
    static const HKEY scratch = MakeScratchKey();
    return key == HKEY_LOCAL_MACHINE && !calls::useMachineSettings ? scratch : key;
}

template <class Argument>
Argument Redirect(Argument argument)
{
    return argument;
}

// Remembers a key that the call has opened.
void Track(const Call& call, HKEY* opened)
{
    g_state.keys[*opened] = call.key;
}

void Track(const Call&, ...) {}

// After a failed query the content of the buffer is undefined.
void Spoil(HKEY, LPCWSTR, DWORD*, DWORD*, BYTE* data, const DWORD* size)
{
    if (data != nullptr && *size > 0)
    {
        *data = 0xEE;
    }
}

void Spoil(...) {}

// Makes the system's call, unless it is refused: the result is then the status, or a null pointer.
template <const char* Name, class Result, class... Arguments>
Result WINAPI Refusable(Arguments... arguments)
{
    static auto* const own = System<decltype(Refusable<Name, Result, Arguments...>)>(Name);
    const Call call = CallOf(Name, arguments...);
    const LONG refusal = Note(call);
    Result result = {};
    if (refusal == 0)
    {
        result = own(Redirect(arguments)...);
    }
    else if constexpr (!std::is_pointer_v<Result>)
    {
        result = refusal;
    }
    if (result == Result{})
    {
        (Track(call, arguments), ...);
    }
    else
    {
        Spoil(arguments...);
    }
    return result;
}

LSTATUS WINAPI CloseKey(HKEY key)
{
    g_state.keys.erase(key);
    return System<decltype(RegCloseKey)>("RegCloseKey")(key);
}

HMONITOR WINAPI ScreenOf(HWND window, DWORD flags)
{
    RECT place = {};
    GetWindowRect(window, &place);
    return IsRectEmpty(&calls::secondScreen)
               ? System<decltype(MonitorFromWindow)>("MonitorFromWindow")(window, flags)
               : reinterpret_cast<HMONITOR>(INT_PTR{place.left + place.right > 2 * 1600 ? 2 : 1});
}

BOOL WINAPI ScreenInfo(HMONITOR screen, MONITORINFO* info)
{
    if (IsRectEmpty(&calls::secondScreen))
    {
        return System<decltype(GetMonitorInfoW)>("GetMonitorInfoW")(screen, info);
    }
    info->rcWork = reinterpret_cast<INT_PTR>(screen) == 2 ? calls::secondScreen : RECT{0, 0, 1600, 1200};
    return TRUE;
}
}  // namespace

void calls::Reset()
{
    g_state.left = 0;
    calls::hasRefused = false;
    calls::secondScreen = {};
    g_state.made.clear();
}

void calls::Refuse(const std::string& prefix, unsigned nth, LONG status, bool andLater)
{
    g_state.refused = prefix;
    g_state.left = nth;
    g_state.status = status;
    g_state.andLater = andLater;
    calls::hasRefused = false;
}

std::vector<Call> calls::Made(const std::string& prefix)
{
    std::vector<Call> made = g_state.made;
    std::erase_if(made, [&prefix](const Call& call) { return !call.function.starts_with(prefix); });
    return made;
}

size_t calls::OpenKeys()
{
    return g_state.keys.size();
}

#define REFUSABLE(function)                        \
    constexpr char NameOf##function[] = #function; \
    INTERPOSE(function, Refusable<NameOf##function>)

INTERPOSE(RegCloseKey, CloseKey)
INTERPOSE(MonitorFromWindow, ScreenOf)
INTERPOSE(GetMonitorInfoW, ScreenInfo)
REFUSABLE(RegOpenKeyExW)
REFUSABLE(RegCreateKeyExW)
REFUSABLE(RegQueryValueExW)
REFUSABLE(RegSetValueExW)
REFUSABLE(RegQueryInfoKeyW)
REFUSABLE(RegEnumValueW)
REFUSABLE(RegEnumKeyExW)
REFUSABLE(RegDeleteTreeW)
REFUSABLE(UuidCreate)
REFUSABLE(CreateWindowExW)
REFUSABLE(CoCreateInstance)
REFUSABLE(MessageBeep)
REFUSABLE(SetForegroundWindow)

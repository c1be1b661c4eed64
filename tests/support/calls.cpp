#include "support/calls.h"

#include "support/registry.h"

#include <objbase.h>
#include <rpc.h>

#include <algorithm>

namespace
{
// The program's constants make calls before other objects are made.
struct State
{
    std::string refused;
    unsigned left = 0;  // calls until that strikes; 0: it does not, or no more
    LONG status = 0;
    bool andLater = false;
    bool struck = false;
    std::vector<Call> made;
    std::map<HKEY, Text> keys;
    int pauses = 0;
    bool usesMachineSettings = false;
    RECT secondScreen = {};  // empty: there is one alone
};

State& TheState()
{
    static State state;
    return state;
}

bool BeginsWith(const std::string& text, const std::string& prefix)
{
    return text.rfind(prefix, 0) == 0;
}

Text PathOf(HKEY key, LPCWSTR below = nullptr)
{
    const auto found = TheState().keys.find(key);
    Text path = found != TheState().keys.end() ? found->second : Text();
    return below == nullptr ? path : path + (path.empty() ? _T("") : _T("\\")) + below;
}

// Lists a call; the status that it is refused with, or 0.
LONG Note(const std::string& function, const Text& key = {}, LPCWSTR name = nullptr)
{
    State& state = TheState();
    if (state.pauses > 0)
    {
        return 0;
    }
    state.made.push_back({function, key, name != nullptr ? name : _T("")});
    const bool isMeant =
        function == state.refused || (state.refused == calls::AnyOfTheRegistry &&
                                      BeginsWith(function, "Reg") && function != "RegCloseKey");
    if (state.left == 0 || !isMeant || --state.left > 0)
    {
        return 0;
    }
    state.left = state.andLater ? 1 : 0;
    state.struck = true;
    return state.status;
}

LSTATUS Opened(LSTATUS status, const HKEY* key, const Text& path)
{
    if (status == ERROR_SUCCESS)
    {
        TheState().keys[*key] = path;
    }
    return status;
}

// What a failed query leaves in its buffer is undefined.
LSTATUS Spoil(LSTATUS status, BYTE* data, DWORD size)
{
    if (status != ERROR_SUCCESS && data != nullptr)
    {
        std::fill_n(data, size, BYTE{0xEE});
    }
    return status;
}

HMONITOR MonitorOf(HWND window)
{
    RECT place = {};
    GetWindowRect(window, &place);
    return reinterpret_cast<HMONITOR>(INT_PTR{place.left + place.right > 2 * 1600 ? 2 : 1});
}

BOOL SetWorkArea(HMONITOR monitor, MONITORINFO* info)
{
    info->rcWork = reinterpret_cast<INT_PTR>(monitor) == 2 ? TheState().secondScreen : RECT{0, 0, 1600, 1200};
    return TRUE;
}

template <class Function>
Function* SystemsOwn(const char* library, const char* name)
{
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(LoadLibraryA(library), name)));
}

// Stands for HKEY_LOCAL_MACHINE, so that no setting of the machine is read or written.
class ScratchKey
{
public:
    ScratchKey()
    {
        Delete();
        SystemsOwn<decltype(RegCreateKeyExW)>("advapi32", "RegCreateKeyExW")(
            HKEY_CURRENT_USER, Path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_key, nullptr);
    }
    ~ScratchKey() { Delete(); }
    ScratchKey(const ScratchKey&) = delete;
    ScratchKey& operator=(const ScratchKey&) = delete;

    HKEY Get() const { return m_key; }

private:
    static constexpr LPCWSTR Path = _T("Software\\Quorvex Bench Settings scratch");

    static void Delete()
    {
        SystemsOwn<decltype(RegDeleteTreeW)>("advapi32", "RegDeleteTreeW")(HKEY_CURRENT_USER, Path);
    }

    HKEY m_key = nullptr;
};

HKEY Redirected(HKEY key)
{
    static const ScratchKey scratch;
    return key == HKEY_LOCAL_MACHINE && !TheState().usesMachineSettings ? scratch.Get() : key;
}
}  // namespace

void calls::Reset()
{
    TheState().refused.clear();
    TheState().struck = false;
    TheState().secondScreen = {};
    TheState().made.clear();
}

void calls::UseMachineSettings()
{
    TheState().usesMachineSettings = true;
}

void calls::AddScreen(const RECT& workArea)
{
    TheState().secondScreen = workArea;
}

void calls::Refuse(const std::string& function, unsigned nth, LONG status, bool andLater)
{
    State& state = TheState();
    state.refused = function;
    state.left = nth;
    state.status = status;
    state.andLater = andLater;
    state.struck = false;
}

bool calls::HasStruck()
{
    return TheState().struck;
}

std::vector<Call> calls::Made(const std::string& prefix)
{
    std::vector<Call> made = TheState().made;
    std::erase_if(made, [&prefix](const Call& call) { return !BeginsWith(call.function, prefix); });
    return made;
}

size_t calls::OpenKeys()
{
    return TheState().keys.size();
}

calls::Pause::Pause()
{
    ++TheState().pauses;
}

calls::Pause::~Pause()
{
    --TheState().pauses;
}

// The program's own definition of a function of the system's: under its name, and behind the pointer by which
// a program calls what it imports. It is noted with a key and a name, and what it answers is the refusal, or
// what comes of the system's `own`.
// clang-format off
#define REFUSABLE(library, result, function, parameters, notes, refusal, answer) \
    result __stdcall Our##function parameters __asm__(#function); \
    extern "C" { extern void* const __imp_##function; \
                 void* const __imp_##function = reinterpret_cast<void*>(&Our##function); } \
    result __stdcall Our##function parameters \
    { \
        static auto* const own = SystemsOwn<decltype(Our##function)>(library, #function); \
        const LONG refused = Note notes; \
        return refused != 0 ? refusal : answer; \
    }

#define REGISTRY(function, parameters, arguments, key, name) \
    REFUSABLE("advapi32", LSTATUS, function, parameters, (#function, key, name), refused, own arguments)

REFUSABLE("advapi32", LSTATUS, RegOpenKeyExW, (HKEY key, LPCWSTR path, DWORD options, REGSAM access, HKEY* opened),
    ("RegOpenKeyExW", PathOf(key, path)), refused,
    Opened(own(Redirected(key), path, options, access, opened), opened, PathOf(key, path)))
REFUSABLE("advapi32", LSTATUS, RegCreateKeyExW, (HKEY key, LPCWSTR path, DWORD reserved, LPWSTR kind, DWORD options,
    REGSAM access, LPSECURITY_ATTRIBUTES security, HKEY* opened, DWORD* disposition),
    ("RegCreateKeyExW", PathOf(key, path)), refused, Opened(own(Redirected(key), path, reserved, kind, options, access,
    security, opened, disposition), opened, PathOf(key, path)))
REFUSABLE("advapi32", LSTATUS, RegCloseKey, (HKEY key), ("RegCloseKey", PathOf(key)), refused,
    (TheState().keys.erase(key), own(key)))
REFUSABLE("advapi32", LSTATUS, RegQueryValueExW, (HKEY key, LPCWSTR name, DWORD* reserved, DWORD* type, BYTE* data,
    DWORD* size), ("RegQueryValueExW", PathOf(key), name), Spoil(refused, data, *size),
    ([=, room = *size] { return Spoil(own(key, name, reserved, type, data, size), data, room); }()))
REGISTRY(RegSetValueExW, (HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size),
    (key, name, reserved, type, data, size), PathOf(key), name)
REGISTRY(RegQueryInfoKeyW, (HKEY key, LPWSTR kind, DWORD* a, DWORD* b, DWORD* c, DWORD* d, DWORD* e, DWORD* f, DWORD* g,
    DWORD* h, DWORD* i, FILETIME* time), (key, kind, a, b, c, d, e, f, g, h, i, time), PathOf(key), nullptr)
REGISTRY(RegEnumValueW, (HKEY key, DWORD index, LPWSTR name, DWORD* length, DWORD* a, DWORD* b, BYTE* data, DWORD* c),
    (key, index, name, length, a, b, data, c), PathOf(key), nullptr)
REGISTRY(RegEnumKeyExW, (HKEY key, DWORD index, LPWSTR name, DWORD* length, DWORD* a, LPWSTR kind, DWORD* b,
    FILETIME* time), (key, index, name, length, a, kind, b, time), PathOf(key), nullptr)
REGISTRY(RegDeleteTreeW, (HKEY key, LPCWSTR path), (Redirected(key), path), PathOf(key, path), nullptr)
REFUSABLE("rpcrt4", RPC_STATUS, UuidCreate, (UUID* id), ("UuidCreate"), refused, own(id))
REFUSABLE("kernel32", HANDLE, CreateMutexW, (LPSECURITY_ATTRIBUTES security, BOOL owned, LPCWSTR name),
    ("CreateMutexW", {}, name), nullptr, own(security, owned, name))
REFUSABLE("user32", HWND, CreateWindowExW, (DWORD exStyle, LPCWSTR kind, LPCWSTR title, DWORD style, int x, int y,
    int width, int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter),
    ("CreateWindowExW " + (IS_INTRESOURCE(kind) ? std::string() : Printable(kind))), nullptr,
    own(exStyle, kind, title, style, x, y, width, height, parent, menu, instance, parameter))
REFUSABLE("user32", BOOL, MessageBeep, (UINT type), ("MessageBeep"), FALSE, own(type))
REFUSABLE("user32", BOOL, SetForegroundWindow, (HWND window), ("SetForegroundWindow"), FALSE, own(window))
REFUSABLE("ole32", HRESULT, CoCreateInstance, (REFCLSID kind, IUnknown* outer, DWORD context, REFIID id, LPVOID* object),
    ("CoCreateInstance"), refused, own(kind, outer, context, id, object))
REFUSABLE("user32", HMONITOR, MonitorFromWindow, (HWND window, DWORD flags), ("MonitorFromWindow"), nullptr,
    !IsRectEmpty(&TheState().secondScreen) ? MonitorOf(window) : own(window, flags))
REFUSABLE("user32", BOOL, GetMonitorInfoW, (HMONITOR monitor, MONITORINFO* info), ("GetMonitorInfoW"), FALSE,
    !IsRectEmpty(&TheState().secondScreen) ? SetWorkArea(monitor, info) : own(monitor, info))

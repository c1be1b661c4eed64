// Last error, the named mutex, modules, time.
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "fault.h"
#include "unicode.h"
#include "winbase.h"
#include "winerror.h"

namespace
{
thread_local DWORD lastError = 0;

// A handle is four times (its index + 1) in `names`, which names its mutex; a mutex without a name has its
// handle only. Never destroyed, because handles are closed while the program's statics go.
struct Mutexes
{
    static Mutexes& Get()
    {
        static auto& mutexes = *new Mutexes;
        return mutexes;
    }

    HANDLE Open(const std::u16string& name)
    {
        auto free = std::find(open.begin(), open.end(), false);
        auto index = static_cast<std::size_t>(free - open.begin());
        if (free == open.end())
        {
            open.push_back(false);
            names.emplace_back();
        }
        open[index] = true;
        names[index] = name;
        if (!name.empty())
        {
            ++uses[name];
        }
        return reinterpret_cast<HANDLE>((index + 1) << 2);
    }

    bool Close(HANDLE handle)
    {
        auto number = reinterpret_cast<std::size_t>(handle);
        std::size_t index = (number >> 2) - 1;
        if ((number & 3) != 0 || index >= open.size() || !open[index])
        {
            return false;
        }
        open[index] = false;
        auto use = uses.find(names[index]);
        if (use != uses.end() && --use->second == 0)
        {
            uses.erase(use);
        }
        return true;
    }

    std::vector<bool> open;
    std::vector<std::u16string> names;
    std::map<std::u16string, unsigned> uses;
};

// "Local\" is what a name lies in anyway; "Global\" is another space. False, with the last error set, for a
// name that no object can have.
bool ObjectName(LPCWSTR given, std::u16string* name)
{
    *name = given == nullptr ? u"" : given;
    if (name->starts_with(u"Local\\"))
    {
        name->erase(0, 6);
    }
    std::size_t prefix = name->starts_with(u"Global\\") ? 7 : 0;
    if (name->find(u'\\', prefix) != std::u16string::npos)
    {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return false;
    }
    return true;
}

ULONGLONG Now(clockid_t clock, ULONGLONG ticksPerSecond)
{
    timespec now = {};
    clock_gettime(clock, &now);
    return static_cast<ULONGLONG>(now.tv_sec) * ticksPerSecond +
           static_cast<ULONGLONG>(now.tv_nsec) / (1'000'000'000 / ticksPerSecond);
}
}  // namespace

DWORD WINAPI GetLastError()
{
    return lastError;
}

void WINAPI SetLastError(DWORD error)
{
    lastError = error;
}

HANDLE WINAPI CreateMutexW(LPSECURITY_ATTRIBUTES, BOOL, LPCWSTR name)
{
    std::u16string objectName;
    DWORD error = 0;
    if (headless::TakeFault("CreateMutexW", &error))
    {
        SetLastError(error);
        return nullptr;
    }
    if (!ObjectName(name, &objectName))
    {
        return nullptr;
    }
    SetLastError(Mutexes::Get().uses.contains(objectName) ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    return Mutexes::Get().Open(objectName);
}

HANDLE WINAPI OpenMutexW(DWORD, BOOL, LPCWSTR name)
{
    std::u16string objectName;
    DWORD error = 0;
    if (headless::TakeFault("OpenMutexW", &error))
    {
        SetLastError(error);
        return nullptr;
    }
    if (name == nullptr)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (!ObjectName(name, &objectName))
    {
        return nullptr;
    }
    if (!Mutexes::Get().uses.contains(objectName))
    {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return nullptr;
    }
    return Mutexes::Get().Open(objectName);
}

BOOL WINAPI CloseHandle(HANDLE object)
{
    DWORD error = ERROR_INVALID_HANDLE;
    if (headless::TakeFault("CloseHandle", &error) || !Mutexes::Get().Close(object))
    {
        SetLastError(error);
        return FALSE;
    }
    return TRUE;
}

HMODULE WINAPI GetModuleHandleW(LPCWSTR)
{
    static HINSTANCE__ program;
    return &program;
}

DWORD WINAPI GetModuleFileNameW(HMODULE, LPWSTR buffer, DWORD size)
{
    char path[4096];
    ssize_t length = readlink("/proc/self/exe", path, sizeof(path));
    std::u16string name = headless::ToWide({path, static_cast<std::size_t>(std::max<ssize_t>(length, 0))});
    headless::CopyText(buffer, size, name);
    if (name.size() < size)
    {
        return static_cast<DWORD>(name.size());
    }
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return size;
}

DWORD WINAPI GetTickCount()
{
    return static_cast<DWORD>(GetTickCount64());
}

ULONGLONG WINAPI GetTickCount64()
{
    return Now(CLOCK_MONOTONIC, 1000);
}

void WINAPI Sleep(DWORD milliseconds)
{
    timespec time = {static_cast<time_t>(milliseconds / 1000),
                     static_cast<long>(milliseconds % 1000) * 1'000'000};
    while (nanosleep(&time, &time) != 0)
    {
    }
}

DWORD WINAPI GetCurrentThreadId()
{
    return static_cast<DWORD>(gettid());
}

int WINAPI MulDiv(int number, int numerator, int denominator)
{
    if (denominator == 0)
    {
        return -1;
    }
    std::int64_t product = std::int64_t{number} * numerator;
    std::int64_t half = (denominator < 0 ? -std::int64_t{denominator} : denominator) / 2;
    std::int64_t result = (product + ((product < 0) ? -half : half)) / denominator;
    return result == static_cast<int>(result) ? static_cast<int>(result) : -1;
}

// What every registry function does around its work: count, fail when a test armed it, record.
#pragma once

#include "fault.h"
#include "registry_tree.h"
#include "winerror.h"

namespace headless::registry
{
struct CallSubject
{
    HKEY key;
    LPCWSTR subKey = nullptr;
    LPCWSTR value = nullptr;
    DWORD type = 0;
    const BYTE* data = nullptr;
    DWORD size = 0;
};

extern bool recording;
// Describes the call before it runs, as its key may be gone afterwards. RecordEnd adds what came of it.
void RecordBegin(const char* function, const CallSubject& subject);
void RecordEnd(LSTATUS status);

template <class Work>
LSTATUS Call(FaultPoint& point, const CallSubject& subject, Work work)
{
    bool recorded = recording;
    if (recorded)
    {
        RecordBegin(point.Function(), subject);
    }
    DWORD error = 0;
    LSTATUS status = point.Take(&error) ? static_cast<LSTATUS>(error) : work();
    if (recorded)
    {
        RecordEnd(status);
    }
    return status;
}

// The key of a handle that is open and has the rights, or the error.
inline LSTATUS Resolve(HKEY handle, REGSAM needed, Key** key)
{
    const OpenKey* open = Lookup(handle);
    if (open == nullptr)
    {
        return ERROR_INVALID_HANDLE;
    }
    if (open->key->deleted)
    {
        return ERROR_KEY_DELETED;
    }
    *key = open->key.get();
    return (open->access & needed) == needed ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

inline std::u16string_view View(LPCWSTR text)
{
    return text == nullptr ? std::u16string_view() : std::u16string_view(text);
}

template <class Target, class Source>
void StoreNumber(Target* target, Source source)
{
    if (target != nullptr)
    {
        *target = static_cast<Target>(source);
    }
}

inline void CopyName(LPWSTR target, std::u16string_view name)
{
    target[name.copy(target, name.size())] = u'\0';
}

inline void StoreTime(PFILETIME target, ULONGLONG time)
{
    if (target != nullptr)
    {
        *target = {static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
    }
}
}  // namespace headless::registry

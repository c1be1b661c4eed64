// The registry, held in memory. A new process, or headless::ResetRegistry, starts with an empty SOFTWARE and
// System under HKEY_LOCAL_MACHINE and an empty Software under HKEY_CURRENT_USER.
#pragma once

#include "winbase.h"
#include "windef.h"

typedef LONG LSTATUS;

#define HKEY_CLASSES_ROOT (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG>(0x80000000))))
#define HKEY_CURRENT_USER (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG>(0x80000001))))
#define HKEY_LOCAL_MACHINE (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG>(0x80000002))))
#define HKEY_USERS (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG>(0x80000003))))

LSTATUS WINAPI RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access, PHKEY result);
LSTATUS WINAPI RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR className, DWORD options,
                               REGSAM access, const LPSECURITY_ATTRIBUTES attributes, PHKEY result,
                               LPDWORD disposition);
LSTATUS WINAPI RegCloseKey(HKEY key);

LSTATUS WINAPI RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                                LPDWORD size);
LSTATUS WINAPI RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data,
                              DWORD size);
LSTATUS WINAPI RegDeleteValueW(HKEY key, LPCWSTR name);

LSTATUS WINAPI RegQueryInfoKeyW(HKEY key, LPWSTR className, LPDWORD classLength, LPDWORD reserved,
                                LPDWORD subKeys, LPDWORD maxSubKeyLength, LPDWORD maxClassLength,
                                LPDWORD values, LPDWORD maxValueNameLength, LPDWORD maxValueSize,
                                LPDWORD securityDescriptorSize, PFILETIME lastWriteTime);
LSTATUS WINAPI RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameLength, LPDWORD reserved,
                             LPWSTR className, LPDWORD classLength, PFILETIME lastWriteTime);
LSTATUS WINAPI RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameLength, LPDWORD reserved,
                             LPDWORD type, LPBYTE data, LPDWORD size);

LSTATUS WINAPI RegDeleteKeyW(HKEY key, LPCWSTR subKey);
LSTATUS WINAPI RegDeleteTreeW(HKEY key, LPCWSTR subKey);

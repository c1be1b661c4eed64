// Processes, named objects, resources, time, the environment.
#pragma once

#include "windef.h"

typedef struct _SECURITY_ATTRIBUTES
{
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
} SECURITY_ATTRIBUTES, *PSECURITY_ATTRIBUTES, *LPSECURITY_ATTRIBUTES;

#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(LONG_PTR{-1}))

DWORD WINAPI GetLastError();
void WINAPI SetLastError(DWORD error);

// A mutex is its name and its existence: nothing here waits, because a headless program has one thread.
HANDLE WINAPI CreateMutexW(LPSECURITY_ATTRIBUTES attributes, BOOL initialOwner, LPCWSTR name);
HANDLE WINAPI OpenMutexW(DWORD access, BOOL inheritHandle, LPCWSTR name);
BOOL WINAPI CloseHandle(HANDLE object);

// There is one module, the program; every module handle means it.
HMODULE WINAPI GetModuleHandleW(LPCWSTR moduleName);
DWORD WINAPI GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD size);

HRSRC WINAPI FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type);
HGLOBAL WINAPI LoadResource(HMODULE module, HRSRC resource);
LPVOID WINAPI LockResource(HGLOBAL data);

// A block's handle is its address; it is zeroed and never moves.
#define GMEM_FIXED 0x0000
#define GMEM_MOVEABLE 0x0002
HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T size);
LPVOID WINAPI GlobalLock(HGLOBAL block);
BOOL WINAPI GlobalUnlock(HGLOBAL block);
HGLOBAL WINAPI GlobalFree(HGLOBAL block);

DWORD WINAPI GetTickCount();
ULONGLONG WINAPI GetTickCount64();
void WINAPI Sleep(DWORD milliseconds);
DWORD WINAPI GetCurrentThreadId();

int WINAPI lstrlenW(LPCWSTR text);
int WINAPI lstrcmpiW(LPCWSTR left, LPCWSTR right);
int WINAPI MulDiv(int number, int numerator, int denominator);

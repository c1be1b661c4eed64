// Wine's tchar.h does not support char16_t. This one declares the routines that the sources use, from Wine's
// C runtime.
#pragma once

#include <windows.h>

#define _T(text) __TEXT(text)

template <class Function>
Function* RuntimeFunction(const char* name)
{
    return reinterpret_cast<Function*>(GetProcAddress(LoadLibraryW(_T("msvcrt.dll")), name));
}

inline const auto _sntprintf = RuntimeFunction<int __cdecl(TCHAR*, size_t, const TCHAR*, ...)>("_snwprintf");
inline const auto _sntscanf =
    RuntimeFunction<int __cdecl(const TCHAR*, size_t, const TCHAR*, ...)>("_snwscanf");
inline const auto _tcstoul = RuntimeFunction<DWORD __cdecl(const TCHAR*, TCHAR**, int)>("wcstoul");
inline const auto _tcstoi64 = RuntimeFunction<LONGLONG __cdecl(const TCHAR*, TCHAR**, int)>("_wcstoi64");
inline const auto _tsplitpath =
    RuntimeFunction<void __cdecl(const TCHAR*, TCHAR*, TCHAR*, TCHAR*, TCHAR*)>("_wsplitpath");

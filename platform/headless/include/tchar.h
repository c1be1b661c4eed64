// The runtime's text routines over TCHAR, under their generic names. Numbers are those of Windows, where long
// has 32 bits; characters are classified as the C locale does, so none beyond ASCII is a letter or a digit.
#pragma once

#include <cstdarg>

#include "winnt.h"

#define __T(quote) u##quote
#define _T(quote) __T(quote)
#define _TEXT(quote) __T(quote)

typedef unsigned int _TINT;

size_t _tcslen(LPCTSTR text);
size_t _tcsnlen(LPCTSTR text, size_t limit);
int _tcscmp(LPCTSTR left, LPCTSTR right);
int _tcsicmp(LPCTSTR left, LPCTSTR right);
int _tcsnicmp(LPCTSTR left, LPCTSTR right, size_t count);
const TCHAR* _tcschr(const TCHAR* text, TCHAR character);
TCHAR* _tcschr(TCHAR* text, TCHAR character);
const TCHAR* _tcsrchr(const TCHAR* text, TCHAR character);
TCHAR* _tcsrchr(TCHAR* text, TCHAR character);
const TCHAR* _tcsstr(const TCHAR* text, const TCHAR* part);
TCHAR* _tcsstr(TCHAR* text, const TCHAR* part);
const TCHAR* _tcspbrk(const TCHAR* text, const TCHAR* characters);
TCHAR* _tcspbrk(TCHAR* text, const TCHAR* characters);
LPTSTR _tcscpy(LPTSTR target, LPCTSTR source);

LONG _tcstol(LPCTSTR text, LPTSTR* end, int base);
ULONG _tcstoul(LPCTSTR text, LPTSTR* end, int base);

// Conversions: d i u x X o c s S p n %, with flags, width, precision and the sizes hh h l ll I64 z. %s is
// TCHAR text, %S and %hs are char text. As in the Windows runtime, -1 means that the text was cut, and text
// that fills the buffer has no terminator.
int _sntprintf(LPTSTR buffer, size_t size, LPCTSTR format, ...);
int _vsntprintf(LPTSTR buffer, size_t size, LPCTSTR format, va_list arguments);
// Conversion: "%x" alone, of at most size characters, into 32 bits; more digits push the first ones out.
// Returns the number of items converted, or EOF when the text ends before the first.
int _sntscanf(LPCTSTR text, size_t size, LPCTSTR format, ...);

int _istdigit(_TINT character);
int _istxdigit(_TINT character);
int _istspace(_TINT character);
int _istalpha(_TINT character);
_TINT _totlower(_TINT character);

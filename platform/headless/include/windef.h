// The basic types. Sizes are those of 64-bit Windows: DWORD and LONG have 32 bits, text is UTF-16.
#pragma once

#include <cstddef>
#include <cstdint>

#include "winnt.h"

typedef int BOOL;
typedef BOOL* PBOOL;
typedef BOOL* LPBOOL;
typedef int INT;
typedef int* LPINT;
typedef unsigned int UINT;
typedef UINT* PUINT;
typedef UINT* LPUINT;
typedef std::uint8_t BYTE;
typedef BYTE* PBYTE;
typedef BYTE* LPBYTE;
typedef std::uint16_t WORD;
typedef WORD* PWORD;
typedef WORD* LPWORD;
typedef std::uint32_t DWORD;
typedef DWORD* PDWORD;
typedef DWORD* LPDWORD;
typedef LONG* LPLONG;
typedef float FLOAT;

typedef UINT_PTR WPARAM;
typedef LONG_PTR LPARAM;
typedef LONG_PTR LRESULT;
typedef WORD ATOM;
typedef DWORD COLORREF;
typedef DWORD* LPCOLORREF;

#define FALSE 0
#define TRUE 1
#define MAX_PATH 260

#define CALLBACK
#define WINAPI
#define APIENTRY
#define PASCAL
#define CDECL
#define FAR
#define CONST const

#define MAKEWORD(low, high)                                                                              \
    (static_cast<WORD>(static_cast<BYTE>((low)&0xFF) | static_cast<WORD>(static_cast<BYTE>((high)&0xFF)) \
                                                           << 8))
#define MAKELONG(low, high)                                         \
    (static_cast<LONG>(static_cast<WORD>(DWORD_PTR(low) & 0xFFFF) | \
                       static_cast<DWORD>(static_cast<WORD>(DWORD_PTR(high) & 0xFFFF)) << 16))
#define LOWORD(value) (static_cast<WORD>(DWORD_PTR(value) & 0xFFFF))
#define HIWORD(value) (static_cast<WORD>((DWORD_PTR(value) >> 16) & 0xFFFF))
#define LOBYTE(value) (static_cast<BYTE>(DWORD_PTR(value) & 0xFF))
#define HIBYTE(value) (static_cast<BYTE>((DWORD_PTR(value) >> 8) & 0xFF))

#define UNREFERENCED_PARAMETER(parameter) (static_cast<void>(parameter))

DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HHOOK);
DECLARE_HANDLE(HKEY);
DECLARE_HANDLE(HACCEL);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HPALETTE);
DECLARE_HANDLE(HPEN);
DECLARE_HANDLE(HRGN);
DECLARE_HANDLE(HRSRC);
DECLARE_HANDLE(HMONITOR);
typedef HICON HCURSOR;
typedef HINSTANCE HMODULE;
typedef HKEY* PHKEY;
typedef void* HGDIOBJ;
typedef HANDLE HGLOBAL;
typedef HANDLE HLOCAL;

typedef INT_PTR(CALLBACK* FARPROC)();

typedef struct tagRECT
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
} RECT, *PRECT, *LPRECT;
typedef const RECT* LPCRECT;

typedef struct tagPOINT
{
    LONG x;
    LONG y;
} POINT, *PPOINT, *LPPOINT;

typedef struct tagSIZE
{
    LONG cx;
    LONG cy;
} SIZE, *PSIZE, *LPSIZE;

typedef struct tagFILETIME
{
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
} FILETIME, *PFILETIME, *LPFILETIME;

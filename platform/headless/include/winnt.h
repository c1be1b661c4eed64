// The types and constants of the system's kernel: integers, characters, GUIDs, access rights, registry
// types. Comes with windef.h.
#pragma once

#define LANG_NEUTRAL 0x00
#define LANG_ENGLISH 0x09
#define SUBLANG_NEUTRAL 0x00
#define SUBLANG_DEFAULT 0x01
#define SUBLANG_ENGLISH_US 0x01

#ifndef RC_INVOKED

#include <cstddef>
#include <cstdint>
#include <cstring>

typedef void* PVOID;
typedef void* LPVOID;
typedef const void* LPCVOID;
typedef void* HANDLE;
typedef HANDLE* PHANDLE;
typedef HANDLE* LPHANDLE;
#define VOID void
#define DECLARE_HANDLE(name) \
    struct name##__          \
    {                        \
        int unused;          \
    };                       \
    typedef struct name##__* name

typedef char CHAR;
typedef char* LPSTR;
typedef const char* LPCSTR;
typedef std::uint8_t UCHAR;
typedef std::int16_t SHORT;
typedef std::uint16_t USHORT;
typedef std::int32_t LONG;
typedef LONG* PLONG;
typedef std::uint32_t ULONG;
typedef ULONG* PULONG;
typedef std::int64_t LONGLONG;
typedef std::uint64_t ULONGLONG;
typedef std::int64_t LONG64;
typedef std::uint64_t ULONG64;
typedef std::uint64_t DWORD64;
typedef std::uint8_t BOOLEAN;

typedef std::intptr_t INT_PTR;
typedef std::uintptr_t UINT_PTR;
typedef std::intptr_t LONG_PTR;
typedef std::uintptr_t ULONG_PTR;
typedef std::uintptr_t DWORD_PTR;
typedef ULONG_PTR* PULONG_PTR;
typedef DWORD_PTR* PDWORD_PTR;
typedef ULONG_PTR SIZE_T;
typedef LONG_PTR SSIZE_T;

typedef char16_t WCHAR;
typedef WCHAR* PWCHAR;
typedef WCHAR* PWSTR;
typedef WCHAR* LPWSTR;
typedef const WCHAR* PCWSTR;
typedef const WCHAR* LPCWSTR;
typedef WCHAR TCHAR;
typedef TCHAR* PTSTR;
typedef TCHAR* LPTSTR;
typedef const TCHAR* PCTSTR;
typedef const TCHAR* LPCTSTR;
#define __TEXT(quote) u##quote
#define TEXT(quote) __TEXT(quote)

typedef LONG HRESULT;
typedef WCHAR OLECHAR;
typedef OLECHAR* LPOLESTR;
typedef const OLECHAR* LPCOLESTR;
typedef WCHAR* BSTR;

typedef std::uint16_t LANGID;
typedef std::uint32_t LCID;
#define MAKELANGID(primary, sub) (static_cast<LANGID>((sub) << 10 | (primary)))

typedef struct _GUID
{
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
} GUID;
typedef GUID IID;
typedef GUID CLSID;
typedef const GUID& REFGUID;
typedef const IID& REFIID;
typedef const CLSID& REFCLSID;

inline int IsEqualGUID(REFGUID left, REFGUID right)
{
    return std::memcmp(&left, &right, sizeof(GUID)) == 0;
}
#define IsEqualIID IsEqualGUID
#define IsEqualCLSID IsEqualGUID
inline bool operator==(REFGUID left, REFGUID right)
{
    return IsEqualGUID(left, right) != 0;
}

typedef union _LARGE_INTEGER
{
    LONGLONG QuadPart;
} LARGE_INTEGER, *PLARGE_INTEGER;

#define DELETE 0x00010000
#define READ_CONTROL 0x00020000
#define WRITE_DAC 0x00040000
#define WRITE_OWNER 0x00080000
#define SYNCHRONIZE 0x00100000
#define STANDARD_RIGHTS_REQUIRED 0x000F0000
#define STANDARD_RIGHTS_READ READ_CONTROL
#define STANDARD_RIGHTS_WRITE READ_CONTROL
#define STANDARD_RIGHTS_ALL 0x001F0000
#define MAXIMUM_ALLOWED 0x02000000
#define GENERIC_READ 0x80000000
#define GENERIC_WRITE 0x40000000
#define GENERIC_EXECUTE 0x20000000
#define GENERIC_ALL 0x10000000
#define MUTEX_MODIFY_STATE 0x0001
#define MUTEX_ALL_ACCESS (STANDARD_RIGHTS_REQUIRED | SYNCHRONIZE | MUTEX_MODIFY_STATE)

typedef std::uint32_t ACCESS_MASK;
typedef ACCESS_MASK REGSAM;
#define KEY_QUERY_VALUE 0x0001
#define KEY_SET_VALUE 0x0002
#define KEY_CREATE_SUB_KEY 0x0004
#define KEY_ENUMERATE_SUB_KEYS 0x0008
#define KEY_NOTIFY 0x0010
#define KEY_CREATE_LINK 0x0020
#define KEY_WOW64_64KEY 0x0100
#define KEY_WOW64_32KEY 0x0200
#define KEY_READ \
    ((STANDARD_RIGHTS_READ | KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS | KEY_NOTIFY) & ~SYNCHRONIZE)
#define KEY_WRITE ((STANDARD_RIGHTS_WRITE | KEY_SET_VALUE | KEY_CREATE_SUB_KEY) & ~SYNCHRONIZE)
#define KEY_EXECUTE (KEY_READ & ~SYNCHRONIZE)
#define KEY_ALL_ACCESS 0x000F003F

#define REG_OPTION_NON_VOLATILE 0x00000000
#define REG_OPTION_VOLATILE 0x00000001
#define REG_CREATED_NEW_KEY 0x00000001
#define REG_OPENED_EXISTING_KEY 0x00000002

#define REG_NONE 0
#define REG_SZ 1
#define REG_EXPAND_SZ 2
#define REG_BINARY 3
#define REG_DWORD 4
#define REG_DWORD_LITTLE_ENDIAN 4
#define REG_DWORD_BIG_ENDIAN 5
#define REG_LINK 6
#define REG_MULTI_SZ 7
#define REG_QWORD 11

#endif

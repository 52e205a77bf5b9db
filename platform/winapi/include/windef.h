// Basic Win32 types and calling-convention words.
//
// LONG is 32 bits on every platform, as on Windows; a `long` that carries a pointer is LPARAM.
// Handles are distinct pointer types, so that mixing two kinds does not compile.
#pragma once

#include "apiexport_.h"

#include <cstddef>
#include <cstdint>

#define WINAPI
#define CALLBACK
#define APIENTRY
#define STDMETHODCALLTYPE
#define STDAPICALLTYPE
#define __cdecl
#define __stdcall
#define __int64 long long
#define CONST const
#define VOID void
#define IN
#define OUT

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using BOOL = int;
using INT = int;
using UINT = unsigned int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using CHAR = char;
using UCHAR = unsigned char;
using SHORT = short;
using USHORT = unsigned short;
using LONGLONG = long long;
using ULONGLONG = unsigned long long;
using DWORDLONG = unsigned long long;
using FLOAT = float;
using DOUBLE = double;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using SIZE_T = std::size_t;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using HRESULT = LONG;
using SCODE = LONG;
using LCID = DWORD;
using LANGID = WORD;
using LCTYPE = DWORD;
using COLORREF = DWORD;
using ATOM = WORD;
using ACCESS_MASK = DWORD;
using REGSAM = ACCESS_MASK;
using LSTATUS = LONG;

// Wide characters are UTF-16 as on Windows; the compiler's own wchar_t is wider here.
using WCHAR = char16_t;
using OLECHAR = WCHAR;

using PVOID = void*;
using LPVOID = void*;
using LPCVOID = const void*;
using LPSTR = char*;
using LPCSTR = const char*;
using PSTR = char*;
using PCSTR = const char*;
using LPWSTR = WCHAR*;
using LPCWSTR = const WCHAR*;
using LPOLESTR = OLECHAR*;
using LPCOLESTR = const OLECHAR*;
using TCHAR = char;
using LPTSTR = TCHAR*;
using LPCTSTR = const TCHAR*;
using LPBYTE = BYTE*;
using PBYTE = BYTE*;
using LPDWORD = DWORD*;
using PDWORD = DWORD*;
using LPWORD = WORD*;
using LPBOOL = BOOL*;
using PBOOL = BOOL*;
using LPLONG = LONG*;
using PLONG = LONG*;
using LPINT = int*;

#define DECLARE_HANDLE(name)                                                                                 \
    struct name##__;                                                                                         \
    using name = name##__*

using HANDLE = void*;
using HGLOBAL = HANDLE;
using HLOCAL = HANDLE;
DECLARE_HANDLE(HINSTANCE);
using HMODULE = HINSTANCE;
DECLARE_HANDLE(HKEY);
using PHKEY = HKEY*;
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HICON);
using HCURSOR = HICON;
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HTASK);
DECLARE_HANDLE(HRSRC);
DECLARE_HANDLE(HACCEL);

using FARPROC = INT_PTR(WINAPI*)();

union LARGE_INTEGER {
    __extension__ struct {
        DWORD LowPart;
        LONG HighPart;
    };
    struct {
        DWORD LowPart;
        LONG HighPart;
    } u;
    LONGLONG QuadPart;
};

union ULARGE_INTEGER {
    __extension__ struct {
        DWORD LowPart;
        DWORD HighPart;
    };
    struct {
        DWORD LowPart;
        DWORD HighPart;
    } u;
    ULONGLONG QuadPart;
};

#define FALSE 0
#define TRUE 1
#define MAX_PATH 260

#define LOBYTE(w) (static_cast<BYTE>(static_cast<DWORD_PTR>(w) & 0xff))
#define HIBYTE(w) (static_cast<BYTE>((static_cast<DWORD_PTR>(w) >> 8) & 0xff))
#define LOWORD(l) (static_cast<WORD>(static_cast<DWORD_PTR>(l) & 0xffff))
#define HIWORD(l) (static_cast<WORD>((static_cast<DWORD_PTR>(l) >> 16) & 0xffff))
#define MAKEWORD(a, b) (static_cast<WORD>((static_cast<WORD>(b) << 8) | static_cast<BYTE>(a)))
#define MAKELONG(a, b)                                                                                       \
    (static_cast<LONG>((static_cast<DWORD>(static_cast<WORD>(b)) << 16) | static_cast<WORD>(a)))
#define RGB(r, g, b)                                                                                         \
    (static_cast<COLORREF>(static_cast<BYTE>(r)) | (static_cast<COLORREF>(static_cast<BYTE>(g)) << 8) |      \
     (static_cast<COLORREF>(static_cast<BYTE>(b)) << 16))
#define GetRValue(rgb) (static_cast<BYTE>(rgb))
#define GetGValue(rgb) (static_cast<BYTE>((rgb) >> 8))
#define GetBValue(rgb) (static_cast<BYTE>((rgb) >> 16))

#define TEXT(text) text

struct POINT {
    LONG x, y;
};
struct SIZE {
    LONG cx, cy;
};
struct RECT {
    LONG left, top, right, bottom;
};
struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};
struct SYSTEMTIME {
    WORD wYear, wMonth, wDayOfWeek, wDay, wHour, wMinute, wSecond, wMilliseconds;
};
using PFILETIME = FILETIME*;
using LPFILETIME = FILETIME*;
using LPSYSTEMTIME = SYSTEMTIME*;
using PLARGE_INTEGER = LARGE_INTEGER*;
using LPRECT = RECT*;
using LPCRECT = const RECT*;
using LPPOINT = POINT*;
using LPSIZE = SIZE*;

static_assert(sizeof(LONG) == 4 && sizeof(DWORD) == 4 && sizeof(LONGLONG) == 8);
static_assert(sizeof(WCHAR) == 2 && sizeof(SYSTEMTIME) == 16 && sizeof(LARGE_INTEGER) == 8);

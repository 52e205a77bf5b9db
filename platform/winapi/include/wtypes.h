// Scalar types of automation.
#pragma once

#include "guiddef.h"
#include "windef.h"
#include "winerror.h"

// Text between automation partners: UTF-16 with its byte count in the four bytes before it.
// Made and freed by the Sys*String functions of oleauto.h only.
using BSTR = OLECHAR*;
using LPBSTR = BSTR*;
#define OLESTR(text) u##text

// -1 is true, 0 is false.
using VARIANT_BOOL = short;
#define VARIANT_TRUE (static_cast<VARIANT_BOOL>(-1))
#define VARIANT_FALSE (static_cast<VARIANT_BOOL>(0))

// Days since 1899-12-30, with the time of day as the fraction; before that day the fraction still counts
// forward from midnight: -1.25 is 1899-12-29 06:00.
using DATE = double;

// An amount in ten-thousandths.
union CY {
    __extension__ struct {
        ULONG Lo;
        LONG Hi;
    };
    LONGLONG int64;
};

// A 96-bit whole number divided by ten to the power of `scale` (0 to 28); `sign` is 0 or DECIMAL_NEG.
struct DECIMAL {
    USHORT wReserved;
    __extension__ union {
        __extension__ struct {
            BYTE scale;
            BYTE sign;
        };
        USHORT signscale;
    };
    ULONG Hi32;
    __extension__ union {
        __extension__ struct {
            ULONG Lo32;
            ULONG Mid32;
        };
        ULONGLONG Lo64;
    };
};
#define DECIMAL_NEG (static_cast<BYTE>(0x80))

using VARTYPE = unsigned short;
enum VARENUM {
    VT_EMPTY = 0,
    VT_NULL = 1,
    VT_I2 = 2,
    VT_I4 = 3,
    VT_R4 = 4,
    VT_R8 = 5,
    VT_CY = 6,
    VT_DATE = 7,
    VT_BSTR = 8,
    VT_DISPATCH = 9,
    VT_ERROR = 10,
    VT_BOOL = 11,
    VT_VARIANT = 12,
    VT_UNKNOWN = 13,
    VT_DECIMAL = 14,
    VT_I1 = 16,
    VT_UI1 = 17,
    VT_UI2 = 18,
    VT_UI4 = 19,
    VT_I8 = 20,
    VT_UI8 = 21,
    VT_INT = 22,
    VT_UINT = 23,
    VT_VOID = 24,
    VT_HRESULT = 25,
    VT_PTR = 26,
    VT_SAFEARRAY = 27,
    VT_USERDEFINED = 29,
    VT_LPSTR = 30,
    VT_LPWSTR = 31,
    VT_RECORD = 36,
    VT_FILETIME = 64,
    VT_BLOB = 65,
    VT_CLSID = 72,
    VT_VECTOR = 0x1000,
    VT_ARRAY = 0x2000,
    VT_BYREF = 0x4000,
    VT_RESERVED = 0x8000,
    VT_ILLEGAL = 0xffff,
    VT_TYPEMASK = 0xfff
};

// Where a class may be served from. Differs: in-process servers exist, others do not.
enum CLSCTX {
    CLSCTX_INPROC_SERVER = 0x1,
    CLSCTX_INPROC_HANDLER = 0x2,
    CLSCTX_LOCAL_SERVER = 0x4,
    CLSCTX_REMOTE_SERVER = 0x10
};
#define CLSCTX_INPROC (CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER)
#define CLSCTX_ALL (CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER | CLSCTX_LOCAL_SERVER | CLSCTX_REMOTE_SERVER)
#define CLSCTX_SERVER (CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER | CLSCTX_REMOTE_SERVER)

static_assert(sizeof(CY) == 8 && sizeof(DECIMAL) == 16);

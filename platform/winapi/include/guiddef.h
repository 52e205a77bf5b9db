// Globally unique identifiers of interfaces and classes.
#pragma once

#include "windef.h"

#include <cstring>

struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
};
using IID = GUID;
using CLSID = GUID;
using LPGUID = GUID*;
using LPIID = IID*;
using LPCLSID = CLSID*;

#define REFGUID const GUID&
#define REFIID const IID&
#define REFCLSID const CLSID&

inline int IsEqualGUID(REFGUID one, REFGUID other)
{
    return std::memcmp(&one, &other, sizeof(GUID)) == 0;
}
inline bool operator==(REFGUID one, REFGUID other)
{
    return IsEqualGUID(one, other) != 0;
}
#define IsEqualIID(one, other) IsEqualGUID(one, other)
#define IsEqualCLSID(one, other) IsEqualGUID(one, other)

// Declares an identifier, or defines it where INITGUID is defined before.
#ifdef INITGUID
#define DEFINE_GUID(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8)                                         \
    extern "C" __attribute__((weak)) const GUID name = {l, w1, w2, {b1, b2, b3, b4, b5, b6, b7, b8}}
#else
#define DEFINE_GUID(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8) extern "C" const GUID name
#endif

WINBASEAPI const GUID GUID_NULL;
#define IID_NULL GUID_NULL
#define CLSID_NULL GUID_NULL

static_assert(sizeof(GUID) == 16);

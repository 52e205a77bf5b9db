// What every unit of the variant code asks about kinds of values.
#pragma once

#include <oaidl.h>

// Bytes of a value of a kind inside an array; VT_PTR is any pointer. 0: no such kind.
std::size_t ElementSize(VARTYPE vt);

// Whether a variant may have this kind, VT_ARRAY and VT_BYREF included.
bool IsVariantType(VARTYPE vt);

// The value itself, or what it refers to; `target` owns nothing.
HRESULT FollowReference(const VARIANTARG& value, VARIANTARG& target);

// Duplicates a text byte by byte; null stays null.
HRESULT CopyText(BSTR from, BSTR* to);

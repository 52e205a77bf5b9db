// The framework's ready-made collections of texts, numbers and pointers.
//
// Differs: they are the templates of afxtempl.h with fixed types.
#pragma once

#include "afxtempl.h"

// An array of texts. Elements are passed as texts or CString, NUL bytes kept with the latter.
class CStringArray : public CArray<CString, const CString&>
{
};

// clang-format off
class CByteArray : public CArray<BYTE, BYTE> {};
class CWordArray : public CArray<WORD, WORD> {};
class CDWordArray : public CArray<DWORD, DWORD> {};
class CUIntArray : public CArray<UINT, UINT> {};
class CPtrArray : public CArray<void*, void*> {};
class CObArray : public CArray<CObject*, CObject*> {};

class CStringList : public CList<CString, const CString&> {};
class CPtrList : public CList<void*, void*> {};
class CObList : public CList<CObject*, CObject*> {};

class CMapPtrToPtr : public CMap<void*, void*, void*, void*> {};
class CMapStringToPtr : public CMap<CString, LPCSTR, void*, void*> {};
class CMapStringToOb : public CMap<CString, LPCSTR, CObject*, CObject*> {};
class CMapStringToString : public CMap<CString, LPCSTR, CString, LPCSTR> {};
// clang-format on

// The framework's collection templates: CArray, CList, CMap.
//
//   CArray<UINT, UINT> numbers;
//   numbers.Add(7);
//   CMap<CString, LPCSTR, int, int> classes;
//   classes.SetAt("beam", 3);
//   int value;
//   if (classes.Lookup("beam", value)) ...
//
// ARG_TYPE is how an element is passed in: the type itself, a reference to it, or what it can be assigned
// from. Errors: an index outside the array throws CInvalidArgException, a size that memory cannot hold
//   CMemoryException; the collection is then unchanged.
// Threads: one collection belongs to one thread at a time.
// Differs: the five helper templates may be specialised as usual; elements that can be moved or copied are
// moved
//   by their constructors when an array grows, others as raw bytes. Sizes are int. No serialization.
#pragma once

#include "afxarr_.h"
#include "afxlst_.h"
#include "afxmap_.h"

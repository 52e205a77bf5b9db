// Lists of entity numbers combined as sets.
//
//   CArray<UINT, UINT> beams, selected, rest;
//   CArrayUtil::SubtractUINT(beams, selected, rest);      // the beams that are not selected, ascending
//   if (CArrayUtil::IsExist(rest, 17, 1)) ...
//
// Lists may be in any order and hold a number more than once. The result may be one of the inputs; otherwise
// the inputs stay as they are.
// Errors: CMemoryException when memory runs out. Threads: different lists at the same time.
#pragma once

#include <afxtempl.h>

class AFX_EXT_CLASS CArrayUtil
{
public:
    // arrOut = arrA op arrB, ascending: 1 union, 2 intersection, 3 what of A is not in B. Any other operation
    // leaves arrOut empty. Repeats count: of a number that A holds a times and B b times the result holds
    // max(a, b), min(a, b), or a - b and not below 0.
    // With one list empty the union is the other as it is, neither sorted nor changed; so is A without an
    // empty B.
    // Cost: one pass over the range of the numbers while that is not much longer than the lists, otherwise a
    // sort of both. Memory: at most 8 bytes for each number of both lists, beside the result.
    static void SetOpUINT(int nOp, CArray<UINT, UINT>& arrA, CArray<UINT, UINT>& arrB,
                          CArray<UINT, UINT>& arrOut);
    static void UnionUINT(CArray<UINT, UINT>& arrA, CArray<UINT, UINT>& arrB, CArray<UINT, UINT>& arrOut);
    static void IntersectUINT(CArray<UINT, UINT>& arrA, CArray<UINT, UINT>& arrB, CArray<UINT, UINT>& arrOut);
    static void SubtractUINT(CArray<UINT, UINT>& arrA, CArray<UINT, UINT>& arrB, CArray<UINT, UINT>& arrOut);

    // arrDst becomes a copy of arrSrc, in the same or in the opposite order.
    static void ReplaceUINT(CArray<UINT, UINT>& arrSrc, CArray<UINT, UINT>& arrDst);
    static void CopyReverseOrder(CArray<UINT, UINT>& arrSrc, CArray<UINT, UINT>& arrDst);

    // 1 when nValue is in the list, else 0. With bSorted 0 the list is first sorted ascending, and stays so;
    // otherwise it must ascend.
    static int IsExist(CArray<UINT, UINT>& arr, UINT nValue, int bSorted);
};

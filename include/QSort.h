// Sorts of plain arrays, of index arrays along with their values, of texts and of points.
//
//   UINT order[] = {0, 1, 2};
//   CString names[] = {"A10", "A2", "A"};
//   CQSort::QSortStringNumWithIndex(order, names, 3);     // A A2 A10, order 2 1 0
//
// Every sort is the run-time library's qsort with a comparison of CCompFunc or of this class, in the same form
// on every platform: where such a comparison is no order (a wrapped difference, a tolerance), the result is
// the same everywhere too. Do not rely on the order of equal elements.
//
// Errors:  none; when memory runs out, an exception leaves the caller's arrays as they were.
// Threads: all functions may be called from any thread.
#pragma once

#include "CompFunc.h"

#include <afxtempl.h>

// What the comparisons of texts with positions compare.
struct T_POS_STR_PAIR {
    unsigned int index;
    CString text;
};
struct T_POS_STR_NUM {
    unsigned int index;
    CString name;
    int zero; // how many zeros the number begins with
    int number;
};

class AFX_EXT_CLASS CQSort
{
public:
    virtual ~CQSort() = default;

    // ---- n elements at p ----

    // By the wrapped difference of CCompFunc::intAsc, unsigned values too: 0x90000000 stands before 1.
    static void QSortInt(int* p, unsigned int n);
    static void QSortLong(LONG* p, unsigned int n);
    static void QSortUInt(unsigned int* p, unsigned int n);
    // By the low halves only, as CCompFunc::int64Asc.
    static void QSortInt64(LONGLONG* p, unsigned int n);
    static void QSortDbl(double* p, unsigned int n);
    static void QSortString(CString* p, unsigned int n);
    // Keys of 20 bits with a serial number in the 12 bits above: by key, then by serial number.
    static void QSortKey20Serial12(unsigned int* p, unsigned int n);

    // ---- n values, and the indices that travel with them ----

    static void QSortIntWithIndex(int* pIndex, int* pValue, unsigned int n);
    static void QSortDblWithIndex(int* pIndex, double* pValue, unsigned int n);
    static void QSortDblWithIndex(unsigned int* pIndex, double* pValue, unsigned int n);
    static void QSortStringWithIndex(unsigned int* pIndex, CString* pText, unsigned int n);
    // In natural order: by the name before a trailing number, then by the number, then by its leading zeros.
    // Unlike the others it needs pIndex to be 0, 1 ... n - 1 on entry: text i of the result is the one that
    // stood at position pIndex[i] of the result; an index outside these leaves the text there as it was.
    static void QSortStringNumWithIndex(unsigned int* pIndex, CString* pText, unsigned int n);

    // The indices of the points in order of two different axes (0 x, 1 y, 2 z) and then the third, compared
    // by CCompFunc::CompReal: 1. 0 and arrIndex as it was for no points or other axes.
    static int QSortByPos(const CArray<T_POS_DBL3_PAIR, T_POS_DBL3_PAIR>& arrPos, int nFirstAxis,
                          int nSecondAxis, CArray<int, int>& arrIndex);

    // Splits "A007" into the name "A", 2 leading zeros and the number 7. Without digits at the end the name
    // is the whole text and the number -1. A number beyond 32 bits wraps; all zeros count as leading.
    static void SeparateStringNum(const CString& str, CString& strName, int& nZero, int& nNum);

    // ---- The comparisons ----

    static int CompareInt(const void* a, const void* b);
    static int CompareLong(const void* a, const void* b);
    static int CompareUInt(const void* a, const void* b);
    static int CompareInt64(const void* a, const void* b);
    static int CompareDbl(const void* a, const void* b); // exact; 0 for what is no number
    static int CompareStringA(const void* a, const void* b);
    static int CompareKey20Serial12(const void* a, const void* b);
    static int CompareIntWithIndex(const void* a, const void* b);       // T_POS_INT_PAIR
    static int CompareDblWithIndex(const void* a, const void* b);       // T_POS_DBL_PAIR, as CompareDbl
    static int CompareStringWithIndex(const void* a, const void* b);    // T_POS_STR_PAIR
    static int CompareStringNumWithIndex(const void* a, const void* b); // T_POS_STR_NUM
};

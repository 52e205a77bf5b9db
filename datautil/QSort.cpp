#include "QSort.h"

#include <afxconv_.h>
#include <afxsort_.h>

#include <mbstring.h>
#include <vector>

namespace {

constexpr unsigned kKeyBits = 20;
constexpr int kNoNumber = -1;

using Comparison = int (*)(const void*, const void*);

// Texts move as raw bytes: a CString is one pointer to what it owns.
template <class T>
void Sort(T* elements, std::size_t n, Comparison compare)
{
    AfxQSort(elements, n, sizeof(T), compare);
}

// Sorts `values` through records of {index, value}.
template <class Record, class Index, class Value>
void SortWithIndex(Index* indices, Value* values, unsigned int n, Comparison compare)
{
    std::vector<Record> records;
    records.reserve(n);
    for (unsigned int i = 0; i < n; ++i)
        records.push_back({static_cast<decltype(Record::index)>(indices[i]), values[i]});
    Sort(records.data(), n, compare);
    for (unsigned int i = 0; i < n; ++i) {
        const auto& [index, value] = records[i];
        indices[i] = static_cast<Index>(index);
        values[i] = value;
    }
}

int TextOrder(const CString& a, const CString& b)
{
    return CQSort::CompareStringA(&a, &b);
}

int WrappedDifference(int a, int b)
{
    return CCompFunc::intAsc(&a, &b);
}

// The wrapped difference, but no number stands before every other: the largest one would wrap.
int NumberOrder(int a, int b)
{
    if (a == kNoNumber || b == kNoNumber)
        return (a != kNoNumber) - (b != kNoNumber);
    return WrappedDifference(a, b);
}

bool IsAxis(int axis)
{
    return axis >= 0 && axis <= 2;
}

} // namespace

void CQSort::QSortInt(int* p, unsigned int n)
{
    Sort(p, n, CompareInt);
}

void CQSort::QSortLong(LONG* p, unsigned int n)
{
    Sort(p, n, CompareLong);
}

void CQSort::QSortUInt(unsigned int* p, unsigned int n)
{
    Sort(p, n, CompareUInt);
}

void CQSort::QSortInt64(LONGLONG* p, unsigned int n)
{
    Sort(p, n, CompareInt64);
}

void CQSort::QSortDbl(double* p, unsigned int n)
{
    Sort(p, n, CompareDbl);
}

void CQSort::QSortString(CString* p, unsigned int n)
{
    Sort(p, n, CompareStringA);
}

void CQSort::QSortKey20Serial12(unsigned int* p, unsigned int n)
{
    Sort(p, n, CompareKey20Serial12);
}

void CQSort::QSortIntWithIndex(int* pIndex, int* pValue, unsigned int n)
{
    SortWithIndex<T_POS_INT_PAIR>(pIndex, pValue, n, CompareIntWithIndex);
}

void CQSort::QSortDblWithIndex(int* pIndex, double* pValue, unsigned int n)
{
    SortWithIndex<T_POS_DBL_PAIR>(pIndex, pValue, n, CompareDblWithIndex);
}

void CQSort::QSortDblWithIndex(unsigned int* pIndex, double* pValue, unsigned int n)
{
    SortWithIndex<T_POS_DBL_PAIR>(pIndex, pValue, n, CompareDblWithIndex);
}

void CQSort::QSortStringWithIndex(unsigned int* pIndex, CString* pText, unsigned int n)
{
    SortWithIndex<T_POS_STR_PAIR>(pIndex, pText, n, CompareStringWithIndex);
}

void CQSort::QSortStringNumWithIndex(unsigned int* pIndex, CString* pText, unsigned int n)
{
    const std::vector<CString> texts(pText, pText + n);
    std::vector<T_POS_STR_NUM> records(n);
    for (unsigned int i = 0; i < n; ++i) {
        records[i].index = pIndex[i];
        SeparateStringNum(texts[i], records[i].name, records[i].zero, records[i].number);
    }
    Sort(records.data(), n, CompareStringNumWithIndex);
    for (unsigned int i = 0; i < n; ++i) {
        pIndex[i] = records[i].index;
        if (pIndex[i] < n)
            pText[i] = texts[pIndex[i]];
    }
}

int CQSort::QSortByPos(const CArray<T_POS_DBL3_PAIR, T_POS_DBL3_PAIR>& arrPos, int nFirstAxis,
                       int nSecondAxis, CArray<int, int>& arrIndex)
{
    const int count = arrPos.GetSize();
    if (nFirstAxis == nSecondAxis || !IsAxis(nFirstAxis) || !IsAxis(nSecondAxis) || count == 0)
        return 0;
    const int axes[3] = {nFirstAxis, nSecondAxis, 3 - nFirstAxis - nSecondAxis};
    std::vector<T_POS_DBL3_PAIR> points(arrPos.GetData(), arrPos.GetData() + count);
    for (T_POS_DBL3_PAIR& point : points) {
        const T_POS_DBL3_PAIR given = point;
        for (int i = 0; i < 3; ++i)
            point.coordinate[i] = given.coordinate[axes[i]];
    }
    Sort(points.data(), points.size(), CCompFunc::PosDbl3PairTolA);
    arrIndex.SetSize(count);
    for (int i = 0; i < count; ++i)
        arrIndex[i] = points[static_cast<std::size_t>(i)].index;
    return 1;
}

void CQSort::SeparateStringNum(const CString& str, CString& strName, int& nZero, int& nNum)
{
    const CString text = str; // the caller may want the name in the same object
    nZero = 0;
    nNum = 0;
    int first = text.GetLength();
    for (; first > 0 && text[first - 1] >= '0' && text[first - 1] <= '9'; --first)
        nZero = text[first - 1] == '0' ? nZero + 1 : 0;
    nNum = first == text.GetLength() ? kNoNumber : AfxAtoI(text.GetString() + first);
    strName = text.Left(first);
}

int CQSort::CompareInt(const void* a, const void* b)
{
    return CCompFunc::intAsc(a, b);
}

int CQSort::CompareLong(const void* a, const void* b)
{
    return CCompFunc::intAsc(a, b);
}

int CQSort::CompareUInt(const void* a, const void* b)
{
    return CCompFunc::intAsc(a, b);
}

int CQSort::CompareInt64(const void* a, const void* b)
{
    return CCompFunc::intAsc(a, b);
}

int CQSort::CompareDbl(const void* a, const void* b)
{
    const double left = *static_cast<const double*>(a);
    const double right = *static_cast<const double*>(b);
    return (left > right) - (left < right);
}

int CQSort::CompareStringA(const void* a, const void* b)
{
    return CCompFunc::stringAsc(a, b);
}

int CQSort::CompareKey20Serial12(const void* a, const void* b)
{
    const unsigned left = *static_cast<const unsigned*>(a);
    const unsigned right = *static_cast<const unsigned*>(b);
    const int byKey = CCompFunc::i20x12Asc(a, b);
    return byKey != 0 ? byKey : static_cast<int>(left >> kKeyBits) - static_cast<int>(right >> kKeyBits);
}

int CQSort::CompareIntWithIndex(const void* a, const void* b)
{
    return CCompFunc::PosIntPairA(a, b);
}

int CQSort::CompareDblWithIndex(const void* a, const void* b)
{
    return CompareDbl(&static_cast<const T_POS_DBL_PAIR*>(a)->value,
                      &static_cast<const T_POS_DBL_PAIR*>(b)->value);
}

int CQSort::CompareStringWithIndex(const void* a, const void* b)
{
    return TextOrder(static_cast<const T_POS_STR_PAIR*>(a)->text,
                     static_cast<const T_POS_STR_PAIR*>(b)->text);
}

int CQSort::CompareStringNumWithIndex(const void* a, const void* b)
{
    const auto& left = *static_cast<const T_POS_STR_NUM*>(a);
    const auto& right = *static_cast<const T_POS_STR_NUM*>(b);
    if (const int byName = TextOrder(left.name, right.name))
        return byName;
    if (const int byNumber = NumberOrder(left.number, right.number))
        return byNumber;
    return WrappedDifference(left.zero, right.zero);
}

#include "ArrayUtil.h"

#include "CompFunc.h"
#include "SetOperation.h"

#include <algorithm>
#include <cstdlib>

namespace {

std::span<const UINT> NumbersOf(const CArray<UINT, UINT>& a)
{
    return {a.GetData(), static_cast<std::size_t>(a.GetSize())};
}

bool IsSetOperation(int op)
{
    return op == kUnion || op == kIntersection || op == kDifference;
}

// What needs no look at the numbers: one list as it is, or nothing. Null when both matter.
const CArray<UINT, UINT>* Shortcut(int op, const CArray<UINT, UINT>& a, const CArray<UINT, UINT>& b)
{
    static const CArray<UINT, UINT> nothing;
    if (!IsSetOperation(op))
        return &nothing;
    if (a.GetSize() > 0 && b.GetSize() > 0)
        return nullptr;
    if (op == kUnion && a.GetSize() == 0)
        return &b;
    return op == kIntersection ? &nothing : &a;
}

} // namespace

void CArrayUtil::SetOpUINT(int nOp, CArray<UINT, UINT>& arrA, CArray<UINT, UINT>& arrB,
                           CArray<UINT, UINT>& arrOut)
{
    if (const CArray<UINT, UINT>* result = Shortcut(nOp, arrA, arrB))
        arrOut.Copy(*result);
    else
        CombineSets(static_cast<SetOperation>(nOp), NumbersOf(arrA), NumbersOf(arrB), arrOut);
}

void CArrayUtil::UnionUINT(CArray<UINT, UINT>& arrA, CArray<UINT, UINT>& arrB, CArray<UINT, UINT>& arrOut)
{
    SetOpUINT(kUnion, arrA, arrB, arrOut);
}

void CArrayUtil::IntersectUINT(CArray<UINT, UINT>& arrA, CArray<UINT, UINT>& arrB, CArray<UINT, UINT>& arrOut)
{
    SetOpUINT(kIntersection, arrA, arrB, arrOut);
}

void CArrayUtil::SubtractUINT(CArray<UINT, UINT>& arrA, CArray<UINT, UINT>& arrB, CArray<UINT, UINT>& arrOut)
{
    SetOpUINT(kDifference, arrA, arrB, arrOut);
}

void CArrayUtil::ReplaceUINT(CArray<UINT, UINT>& arrSrc, CArray<UINT, UINT>& arrDst)
{
    arrDst.Copy(arrSrc);
}

void CArrayUtil::CopyReverseOrder(CArray<UINT, UINT>& arrSrc, CArray<UINT, UINT>& arrDst)
{
    arrDst.Copy(arrSrc);
    std::reverse(arrDst.GetData(), arrDst.GetData() + arrDst.GetSize());
}

int CArrayUtil::IsExist(CArray<UINT, UINT>& arr, UINT nValue, int bSorted)
{
    const int count = arr.GetSize();
    if (count == 0)
        return 0;
    if (bSorted == 0)
        std::qsort(arr.GetData(), static_cast<std::size_t>(count), sizeof(UINT), CCompFunc::UINTAsc);
    const int nearest = CCompFunc::FindNearest(&nValue, arr.GetData(), static_cast<UINT>(count), sizeof(UINT),
                                               CCompFunc::UINTDist);
    return nearest >= 0 && nearest < count && arr[nearest] == nValue;
}

#include "../Error.h"

#include <windows.h>

#include <algorithm>

BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom)
{
    if (!rect)
        return FALSE;
    *rect = {left, top, right, bottom};
    return TRUE;
}

BOOL WINAPI SetRectEmpty(LPRECT rect)
{
    return SetRect(rect, 0, 0, 0, 0);
}

BOOL WINAPI CopyRect(LPRECT rect, const RECT* source)
{
    if (!rect || !source)
        return FALSE;
    *rect = *source;
    return TRUE;
}

namespace {

// Coordinates wrap, as on Windows.
LONG Sum(LONG a, LONG b)
{
    return static_cast<LONG>(static_cast<DWORD>(a) + static_cast<DWORD>(b));
}

LONG Difference(LONG a, LONG b)
{
    return static_cast<LONG>(static_cast<DWORD>(a) - static_cast<DWORD>(b));
}

bool Covers(const RECT& whole, const RECT& part)
{
    return whole.left <= part.left && whole.top <= part.top && whole.right >= part.right &&
           whole.bottom >= part.bottom;
}

} // namespace

BOOL WINAPI InflateRect(LPRECT rect, int dx, int dy)
{
    if (!rect)
        return FALSE;
    *rect = {Difference(rect->left, dx), Difference(rect->top, dy), Sum(rect->right, dx),
             Sum(rect->bottom, dy)};
    return TRUE;
}

BOOL WINAPI OffsetRect(LPRECT rect, int dx, int dy)
{
    if (!rect)
        return FALSE;
    *rect = {Sum(rect->left, dx), Sum(rect->top, dy), Sum(rect->right, dx), Sum(rect->bottom, dy)};
    return TRUE;
}

BOOL WINAPI IsRectEmpty(const RECT* rect)
{
    return !rect || rect->left >= rect->right || rect->top >= rect->bottom;
}

BOOL WINAPI EqualRect(const RECT* a, const RECT* b)
{
    return a && b && a->left == b->left && a->top == b->top && a->right == b->right && a->bottom == b->bottom;
}

BOOL WINAPI PtInRect(const RECT* rect, POINT point)
{
    return rect && point.x >= rect->left && point.x < rect->right && point.y >= rect->top &&
           point.y < rect->bottom;
}

BOOL WINAPI IntersectRect(LPRECT rect, const RECT* a, const RECT* b)
{
    if (!rect || !a || !b)
        return FALSE;
    const RECT common = {std::max(a->left, b->left), std::max(a->top, b->top), std::min(a->right, b->right),
                         std::min(a->bottom, b->bottom)};
    if (IsRectEmpty(a) || IsRectEmpty(b) || IsRectEmpty(&common)) {
        SetRectEmpty(rect);
        return FALSE;
    }
    *rect = common;
    return TRUE;
}

BOOL WINAPI UnionRect(LPRECT rect, const RECT* a, const RECT* b)
{
    if (!rect || !a || !b)
        return FALSE;
    if (IsRectEmpty(a) && IsRectEmpty(b)) {
        SetRectEmpty(rect);
        return FALSE;
    }
    if (IsRectEmpty(a) || IsRectEmpty(b))
        return CopyRect(rect, IsRectEmpty(a) ? b : a);
    *rect = {std::min(a->left, b->left), std::min(a->top, b->top), std::max(a->right, b->right),
             std::max(a->bottom, b->bottom)};
    return TRUE;
}

BOOL WINAPI SubtractRect(LPRECT rect, const RECT* a, const RECT* b)
{
    if (!rect || !a || !b)
        return FALSE;
    RECT left = *a, common = {};
    if (IntersectRect(&common, a, b)) {
        if (Covers(common, *a)) {
            SetRectEmpty(rect);
            return FALSE;
        }
        if (common.top == a->top && common.bottom == a->bottom) {
            if (common.left == a->left)
                left.left = common.right;
            else if (common.right == a->right)
                left.right = common.left;
        } else if (common.left == a->left && common.right == a->right) {
            if (common.top == a->top)
                left.top = common.bottom;
            else if (common.bottom == a->bottom)
                left.bottom = common.top;
        }
    }
    *rect = left;
    return !IsRectEmpty(rect);
}

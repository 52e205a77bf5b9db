// Points, sizes and rectangles: POINT, SIZE and RECT with operations.
//
// Units: the caller's. A rectangle's right and bottom edges lie outside of it; it is normal when they are not
// smaller than left and top, and some operations need that: their comments say so.
// Threads: plain values.
#pragma once

#include "afxver_.h"

#include <windows.h>

class CPoint;
class CRect;

class CSize : public SIZE
{
public:
    CSize() : CSize(0, 0) {}
    CSize(int initCX, int initCY) : SIZE{initCX, initCY} {}
    CSize(SIZE size) : SIZE(size) {}
    CSize(POINT point) : SIZE{point.x, point.y} {}
    // Signed words: width low, height high.
    CSize(DWORD size) : CSize(static_cast<short>(LOWORD(size)), static_cast<short>(HIWORD(size))) {}

    // The own type has overloads of its own, so that both sides convert alike.
    BOOL operator==(const CSize& size) const { return cx == size.cx && cy == size.cy; }
    BOOL operator==(SIZE size) const { return *this == CSize(size); }
    BOOL operator!=(const CSize& size) const { return !(*this == size); }
    BOOL operator!=(SIZE size) const { return !(*this == CSize(size)); }

    void operator+=(SIZE size) { SetSize(cx + size.cx, cy + size.cy); }
    void operator-=(SIZE size) { SetSize(cx - size.cx, cy - size.cy); }
    void SetSize(int newCX, int newCY) { *this = CSize(newCX, newCY); }

    CSize operator+(SIZE size) const { return {cx + size.cx, cy + size.cy}; }
    CSize operator-(SIZE size) const { return {cx - size.cx, cy - size.cy}; }
    CSize operator-() const { return {-cx, -cy}; }
    // `point` or `rect`, moved by the size or back by it.
    CPoint operator+(POINT point) const;
    CPoint operator-(POINT point) const;
    CRect operator+(const RECT* rect) const;
    CRect operator-(const RECT* rect) const;
};

class CPoint : public POINT
{
public:
    CPoint() : CPoint(0, 0) {}
    CPoint(int initX, int initY) : POINT{initX, initY} {}
    CPoint(POINT point) : POINT(point) {}
    CPoint(SIZE size) : POINT{size.cx, size.cy} {}
    // Signed words as in a mouse message: x low, y high.
    CPoint(LPARAM point) : CPoint(static_cast<short>(LOWORD(point)), static_cast<short>(HIWORD(point))) {}

    BOOL operator==(const CPoint& point) const { return x == point.x && y == point.y; }
    BOOL operator==(POINT point) const { return *this == CPoint(point); }
    BOOL operator!=(const CPoint& point) const { return !(*this == point); }
    BOOL operator!=(POINT point) const { return !(*this == CPoint(point)); }

    void Offset(int dx, int dy) { SetPoint(x + dx, y + dy); }
    void Offset(POINT point) { Offset(point.x, point.y); }
    void Offset(SIZE size) { Offset(size.cx, size.cy); }
    void SetPoint(int newX, int newY) { *this = CPoint(newX, newY); }

    void operator+=(SIZE size) { Offset(size); }
    void operator-=(SIZE size) { SetPoint(x - size.cx, y - size.cy); }
    void operator+=(POINT point) { Offset(point); }
    void operator-=(POINT point) { SetPoint(x - point.x, y - point.y); }

    CPoint operator+(SIZE size) const { return {x + size.cx, y + size.cy}; }
    CPoint operator-(SIZE size) const { return {x - size.cx, y - size.cy}; }
    CPoint operator-() const { return {-x, -y}; }
    CPoint operator+(POINT point) const { return {x + point.x, y + point.y}; }
    CSize operator-(POINT point) const { return {x - point.x, y - point.y}; }
    // `rect`, moved by the point or back by it.
    CRect operator+(const RECT* rect) const;
    CRect operator-(const RECT* rect) const;
};

class CRect : public RECT
{
public:
    CRect() : CRect(0, 0, 0, 0) {}
    CRect(int l, int t, int r, int b) : RECT{l, t, r, b} {}
    CRect(const RECT& rect) : RECT(rect) {}
    CRect(LPCRECT rect) : RECT(*rect) {}
    CRect(POINT point, SIZE size) : CRect(point.x, point.y, point.x + size.cx, point.y + size.cy) {}
    CRect(POINT topLeft, POINT bottomRight) : CRect(topLeft.x, topLeft.y, bottomRight.x, bottomRight.y) {}

    // Negative when the rectangle is not normal.
    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    // The corners themselves, which may be set.
    CPoint& TopLeft() { return *reinterpret_cast<CPoint*>(this); }
    CPoint& BottomRight() { return reinterpret_cast<CPoint*>(this)[1]; }
    const CPoint& TopLeft() const { return *reinterpret_cast<const CPoint*>(this); }
    const CPoint& BottomRight() const { return reinterpret_cast<const CPoint*>(this)[1]; }
    // Halves are cut towards zero.
    CPoint CenterPoint() const { return {(left + right) / 2, (top + bottom) / 2}; }
    // Exchanges left and right.
    void SwapLeftRight() { SwapLeftRight(this); }
    static void SwapLeftRight(LPRECT rect);

    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }

    // Width or height is 0 or negative.
    BOOL IsRectEmpty() const { return ::IsRectEmpty(this); }
    // All four are 0.
    BOOL IsRectNull() const { return left == 0 && right == 0 && top == 0 && bottom == 0; }
    // Left and top lie inside, right and bottom outside. The rectangle must be normal.
    BOOL PtInRect(POINT point) const { return ::PtInRect(this, point); }

    void SetRect(int l, int t, int r, int b) { *this = CRect(l, t, r, b); }
    void SetRect(POINT topLeft, POINT bottomRight) { *this = CRect(topLeft, bottomRight); }
    void SetRectEmpty() { *this = CRect(); }
    void CopyRect(LPCRECT source) { *this = CRect(source); }
    BOOL EqualRect(LPCRECT rect) const { return ::EqualRect(this, rect); }

    // Move the edges outwards (inwards), each by its own amount where four are given.
    void InflateRect(int x, int y) { InflateRect(x, y, x, y); }
    void InflateRect(SIZE size) { InflateRect(size.cx, size.cy); }
    void InflateRect(LPCRECT rect) { InflateRect(rect->left, rect->top, rect->right, rect->bottom); }
    void InflateRect(int l, int t, int r, int b) { SetRect(left - l, top - t, right + r, bottom + b); }
    void DeflateRect(int x, int y) { DeflateRect(x, y, x, y); }
    void DeflateRect(SIZE size) { DeflateRect(size.cx, size.cy); }
    void DeflateRect(LPCRECT rect) { DeflateRect(rect->left, rect->top, rect->right, rect->bottom); }
    void DeflateRect(int l, int t, int r, int b) { SetRect(left + l, top + t, right - r, bottom - b); }

    void OffsetRect(int x, int y) { SetRect(left + x, top + y, right + x, bottom + y); }
    void OffsetRect(SIZE size) { OffsetRect(size.cx, size.cy); }
    void OffsetRect(POINT point) { OffsetRect(point.x, point.y); }
    // The size stays.
    void MoveToX(int x) { OffsetRect(x - left, 0); }
    void MoveToY(int y) { OffsetRect(0, y - top); }
    void MoveToXY(int x, int y) { OffsetRect(x - left, y - top); }
    void MoveToXY(POINT point) { MoveToXY(point.x, point.y); }
    void NormalizeRect();

    // Of normal rectangles; either may be the object itself. TRUE when the result is not empty; an empty one
    // is all 0.
    BOOL IntersectRect(LPCRECT a, LPCRECT b) { return ::IntersectRect(this, a, b); }
    // The smallest rectangle round both; an empty one does not count.
    BOOL UnionRect(LPCRECT a, LPCRECT b) { return ::UnionRect(this, a, b); }
    // What is left of `a` without `b` if that is a rectangle, else `a`.
    BOOL SubtractRect(LPCRECT a, LPCRECT b) { return ::SubtractRect(this, a, b); }

    BOOL operator==(const CRect& rect) const { return ::EqualRect(this, &rect); }
    BOOL operator==(const RECT& rect) const { return ::EqualRect(this, &rect); }
    BOOL operator!=(const CRect& rect) const { return !::EqualRect(this, &rect); }
    BOOL operator!=(const RECT& rect) const { return !::EqualRect(this, &rect); }
    void operator=(const RECT& source) { CopyRect(&source); }

    // Moved by a point or a size; with a rectangle each edge outwards (inwards) by its own amount.
    void operator+=(POINT point) { OffsetRect(point); }
    void operator+=(SIZE size) { OffsetRect(size); }
    void operator+=(LPCRECT rect) { InflateRect(rect); }
    void operator-=(POINT point) { OffsetRect(-point.x, -point.y); }
    void operator-=(SIZE size) { OffsetRect(-size.cx, -size.cy); }
    void operator-=(LPCRECT rect) { DeflateRect(rect); }
    void operator&=(const RECT& rect) { IntersectRect(this, &rect); }
    void operator|=(const RECT& rect) { UnionRect(this, &rect); }

    template <class Shift>
    CRect operator+(const Shift& shift) const
    {
        CRect result(*this);
        result += shift;
        return result;
    }
    template <class Shift>
    CRect operator-(const Shift& shift) const
    {
        CRect result(*this);
        result -= shift;
        return result;
    }
    CRect operator&(const RECT& rect) const
    {
        CRect result(*this);
        result &= rect;
        return result;
    }
    CRect operator|(const RECT& rect) const
    {
        CRect result(*this);
        result |= rect;
        return result;
    }

    // Each edge multiplied and divided as ::MulDiv does.
    CRect MulDiv(int multiplier, int divisor) const
    {
        return {::MulDiv(left, multiplier, divisor), ::MulDiv(top, multiplier, divisor),
                ::MulDiv(right, multiplier, divisor), ::MulDiv(bottom, multiplier, divisor)};
    }
};

inline void CRect::SwapLeftRight(LPRECT rect)
{
    const LONG oldLeft = rect->left;
    rect->left = rect->right;
    rect->right = oldLeft;
}

inline void CRect::NormalizeRect()
{
    if (left > right)
        SwapLeftRight();
    if (top > bottom)
        SetRect(left, bottom, right, top);
}

inline CPoint CSize::operator+(POINT point) const
{
    return CPoint(point) + *this;
}
inline CPoint CSize::operator-(POINT point) const
{
    return CPoint(point) - *this;
}
inline CRect CSize::operator+(const RECT* rect) const
{
    return CRect(rect) + *this;
}
inline CRect CSize::operator-(const RECT* rect) const
{
    return CRect(rect) - *this;
}
inline CRect CPoint::operator+(const RECT* rect) const
{
    return CRect(rect) + *this;
}
inline CRect CPoint::operator-(const RECT* rect) const
{
    return CRect(rect) - *this;
}

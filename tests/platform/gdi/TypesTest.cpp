// Points, sizes and rectangles.
#include <afxwin.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

void ExpectRect(const CRect& rect, int l, int t, int r, int b)
{
    EXPECT_EQ(rect.left, l);
    EXPECT_EQ(rect.top, t);
    EXPECT_EQ(rect.right, r);
    EXPECT_EQ(rect.bottom, b);
}

void ExpectPair(int x, int y, int wantedX, int wantedY)
{
    EXPECT_EQ(x, wantedX);
    EXPECT_EQ(y, wantedY);
}

TEST(Types, AreTheStructuresThemselves)
{
    EXPECT_EQ(sizeof(CPoint), sizeof(POINT));
    EXPECT_EQ(sizeof(CSize), sizeof(SIZE));
    EXPECT_EQ(sizeof(CRect), sizeof(RECT));
}

TEST(Types, WordsOfAMessageAreSigned)
{
    const CPoint point(static_cast<LPARAM>(MAKELONG(0xffff, 0x8000)));
    ExpectPair(point.x, point.y, -1, -32768);
    const CSize size(static_cast<DWORD>(MAKELONG(0x7fff, 0xfffe)));
    ExpectPair(size.cx, size.cy, 32767, -2);
}

TEST(Types, PointsAndSizesAddUp)
{
    const CPoint point(10, 20);
    const CSize size(3, -4);
    struct Row {
        const char* label;
        CPoint result;
        int x, y;
    };
    const Row rows[] = {
        {"point + size", point + size, 13, 16},
        {"point - size", point - size, 7, 24},
        {"point + point", point + CPoint(1, 2), 11, 22},
        {"point - point", point - CPoint(1, 2), 9, 18},
        {"-point", -point, -10, -20},
        {"size + size", size + size, 6, -8},
        {"size - size", size - CSize(1, 1), 2, -5},
        {"-size", -size, -3, 4},
        {"size + point", size + point, 13, 16},
        {"a point less the size", size - point, 7, 24},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        ExpectPair(row.result.x, row.result.y, row.x, row.y);
    }
    const CRect rect(0, 0, 5, 5);
    ExpectRect(size + &rect, 3, -4, 8, 1);
    ExpectRect(size - &rect, -3, 4, 2, 9);
    ExpectRect(point + &rect, 10, 20, 15, 25);
    ExpectRect(point - &rect, -10, -20, -5, -15);
}

TEST(Types, CompareWithTheirOwnKindAndThePlainOne)
{
    const POINT plainPoint = {1, 2};
    const SIZE plainSize = {1, 2};
    const RECT plainRect = {1, 2, 3, 4};
    EXPECT_TRUE(CPoint(1, 2) == CPoint(1, 2) && CPoint(1, 2) == plainPoint && CPoint(2, 2) != plainPoint);
    EXPECT_TRUE(CPoint(1, 2) != CPoint(1, 3) && !(CPoint(1, 2) != CPoint(1, 2)));
    EXPECT_TRUE(CSize(1, 2) == CSize(1, 2) && CSize(1, 2) == plainSize && CSize(1, 3) != plainSize);
    EXPECT_TRUE(CRect(1, 2, 3, 4) == plainRect && CRect(1, 2, 3, 5) != plainRect);
    EXPECT_TRUE(CRect(1, 2, 3, 4) != CRect(0, 2, 3, 4) && CRect(1, 2, 3, 4) == CRect(1, 2, 3, 4));
}

TEST(Rect, IsMadeFromCornersAndSizes)
{
    const POINT corner = {1, 2}, other = {11, 22};
    const SIZE size = {10, 20};
    const RECT plain = {1, 2, 11, 22};
    for (const CRect& rect : {CRect(corner, size), CRect(corner, other), CRect(plain), CRect(&plain)})
        ExpectRect(rect, 1, 2, 11, 22);
    ExpectRect(CRect(), 0, 0, 0, 0);
}

TEST(Rect, TellsItsMeasures)
{
    struct Row {
        CRect rect;
        int width, height, centerX, centerY;
        BOOL isEmpty, isNull;
    };
    const Row rows[] = {
        {{1, 2, 11, 22}, 10, 20, 6, 12, FALSE, FALSE}, {{0, 0, 3, 5}, 3, 5, 1, 2, FALSE, FALSE},
        {{-3, -5, 0, 0}, 3, 5, -1, -2, FALSE, FALSE},  {{5, 5, 5, 9}, 0, 4, 5, 7, TRUE, FALSE},
        {{9, 9, 5, 12}, -4, 3, 7, 10, TRUE, FALSE},    {{0, 0, 0, 0}, 0, 0, 0, 0, TRUE, TRUE},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.rect.left << ' ' << row.rect.right);
        ExpectPair(row.rect.Width(), row.rect.Height(), row.width, row.height);
        EXPECT_TRUE(row.rect.Size() == CSize(row.width, row.height));
        EXPECT_TRUE(row.rect.CenterPoint() == CPoint(row.centerX, row.centerY));
        EXPECT_EQ(row.rect.IsRectEmpty() != FALSE, row.isEmpty != FALSE);
        EXPECT_EQ(row.rect.IsRectNull() != FALSE, row.isNull != FALSE);
    }
}

TEST(Rect, CornersMayBeSet)
{
    CRect rect(1, 2, 3, 4);
    rect.TopLeft() = CPoint(-1, -2);
    rect.BottomRight().Offset(10, 20);
    ExpectRect(rect, -1, -2, 13, 24);
    const CRect same(rect);
    EXPECT_TRUE(same.TopLeft() == CPoint(-1, -2) && same.BottomRight() == CPoint(13, 24));
}

TEST(Rect, HoldsItsLeftAndTopEdgesOnly)
{
    const CRect rect(10, 20, 30, 40);
    EXPECT_TRUE(rect.PtInRect(CPoint(10, 20)) && rect.PtInRect(CPoint(29, 39)));
    for (const CPoint& outside : {CPoint(9, 20), CPoint(10, 19), CPoint(30, 25), CPoint(15, 40)})
        EXPECT_FALSE(rect.PtInRect(outside));
}

struct Change {
    const char* label;
    void (*apply)(CRect& rect);
    int l, t, r, b;
};

TEST(Rect, Changes)
{
    static const Change kChanges[] = {
        {"inflate", [](CRect& rect) { rect.InflateRect(1, 2); }, 9, 18, 31, 42},
        {"inflate by a size", [](CRect& rect) { rect.InflateRect(CSize(1, 2)); }, 9, 18, 31, 42},
        {"inflate each edge", [](CRect& rect) { rect.InflateRect(1, 2, 3, 4); }, 9, 18, 33, 44},
        {"add edges", [](CRect& rect) { rect += CRect(1, 2, 3, 4); }, 9, 18, 33, 44},
        {"deflate", [](CRect& rect) { rect.DeflateRect(1, 2); }, 11, 22, 29, 38},
        {"deflate by edges", [](CRect& rect) { rect -= CRect(1, 2, 3, 4); }, 11, 22, 27, 36},
        {"offset", [](CRect& rect) { rect.OffsetRect(5, -5); }, 15, 15, 35, 35},
        {"add a point", [](CRect& rect) { rect = rect + CPoint(5, -5); }, 15, 15, 35, 35},
        {"take a size", [](CRect& rect) { rect = rect - CSize(5, -5); }, 5, 25, 25, 45},
        {"move to", [](CRect& rect) { rect.MoveToXY(CPoint(0, 1)); }, 0, 1, 20, 21},
        {"move to x", [](CRect& rect) { rect.MoveToX(-10); }, -10, 20, 10, 40},
        {"move to y", [](CRect& rect) { rect.MoveToY(0); }, 10, 0, 30, 20},
        {"swap left and right", [](CRect& rect) { rect.SwapLeftRight(); }, 30, 20, 10, 40},
        {"normalize", [](CRect& rect) { rect.SetRect(30, 40, 10, 20), rect.NormalizeRect(); }, 10, 20, 30,
         40},
        {"normal already", [](CRect& rect) { rect.NormalizeRect(); }, 10, 20, 30, 40},
        {"intersect", [](CRect& rect) { rect &= CRect(20, 0, 99, 99); }, 20, 20, 30, 40},
        {"intersect beside", [](CRect& rect) { rect = rect & CRect(30, 20, 40, 40); }, 0, 0, 0, 0},
        {"union", [](CRect& rect) { rect |= CRect(0, 0, 1, 1); }, 0, 0, 30, 40},
        {"union with an empty one", [](CRect& rect) { rect = rect | CRect(0, 0, 0, 99); }, 10, 20, 30, 40},
        {"subtract", [](CRect& rect) { rect.SubtractRect(&rect, CRect(0, 0, 15, 99)); }, 15, 20, 30, 40},
        {"subtract a hole", [](CRect& rect) { rect.SubtractRect(&rect, CRect(15, 25, 16, 26)); }, 10, 20, 30,
         40},
        {"multiply and divide", [](CRect& rect) { rect = rect.MulDiv(1, -4); }, -3, -5, -8, -10},
        {"empty", [](CRect& rect) { rect.SetRectEmpty(); }, 0, 0, 0, 0},
    };
    for (const Change& change : kChanges) {
        SCOPED_TRACE(change.label);
        CRect rect(10, 20, 30, 40);
        change.apply(rect);
        ExpectRect(rect, change.l, change.t, change.r, change.b);
    }
}

TEST(MulDiv, RoundsHalvesAwayFromZero)
{
    constexpr int kMost = std::numeric_limits<int>::max(), kLeast = std::numeric_limits<int>::min();
    struct Row {
        int a, b, divisor, result;
    };
    static const Row kRows[] = {
        {7, 1, 2, 4},
        {-7, 1, 2, -4},
        {7, -1, -2, 4},
        {5, 1, 4, 1},
        {0, 9, -5, 0},
        {kMost, kMost, 1, -1},
        {1, 1, 0, -1},
        {kMost, 2, 2, kMost},
        {kLeast, 2, 4, kLeast / 2},
        {kLeast, kLeast, kMost, -1},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(testing::Message() << row.a << " * " << row.b << " / " << row.divisor);
        EXPECT_EQ(MulDiv(row.a, row.b, row.divisor), row.result);
    }
    std::mt19937 random(20);
    for (int i = 0; i < 2000; ++i) {
        const int a = static_cast<int>(random() % 20001) - 10000,
                  b = static_cast<int>(random() % 20001) - 10000;
        const int divisor = static_cast<int>(random() % 999) + 1;
        EXPECT_EQ(MulDiv(a, b, divisor), std::lround(static_cast<double>(a) * b / divisor));
    }
}

} // namespace

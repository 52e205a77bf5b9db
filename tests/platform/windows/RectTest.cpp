// The arithmetic of rectangles, against counting single pixels.
#include <gtest/gtest.h>
#include <windows.h>

#include <array>

namespace {

constexpr int kSide = 5;
using Pixels = std::array<bool, kSide * kSide>;

Pixels PixelsOf(const RECT& rect)
{
    Pixels pixels = {};
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            pixels[static_cast<size_t>(y * kSide + x)] = PtInRect(&rect, {x, y});
    return pixels;
}

template <class Combine>
Pixels Combined(const RECT& a, const RECT& b, Combine combine)
{
    const Pixels pa = PixelsOf(a), pb = PixelsOf(b);
    Pixels result = {};
    for (size_t i = 0; i < result.size(); ++i)
        result[i] = combine(pa[i], pb[i]);
    return result;
}

bool IsNone(const Pixels& pixels)
{
    return pixels == Pixels{};
}

// Whether the pixels fill a rectangle; the smallest round them.
bool IsRectangle(const Pixels& pixels, RECT& hull)
{
    hull = {kSide, kSide, 0, 0};
    for (LONG y = 0; y < kSide; ++y)
        for (LONG x = 0; x < kSide; ++x)
            if (pixels[static_cast<size_t>(y * kSide + x)])
                hull = {std::min(hull.left, x), std::min(hull.top, y), std::max(hull.right, x + 1),
                        std::max(hull.bottom, y + 1)};
    return PixelsOf(hull) == pixels;
}

template <class Check>
void ForAllPairs(Check check)
{
    const std::array<std::array<LONG, 2>, 6> spans = {{{0, 5}, {0, 2}, {1, 3}, {2, 5}, {3, 3}, {4, 1}}};
    for (const auto& ax : spans)
        for (const auto& ay : spans)
            for (const auto& bx : spans)
                for (const auto& by : spans) {
                    const RECT a = {ax[0], ay[0], ax[1], ay[1]}, b = {bx[0], by[0], bx[1], by[1]};
                    SCOPED_TRACE(testing::Message()
                                 << a.left << ',' << a.top << ' ' << a.right << ',' << a.bottom << " with "
                                 << b.left << ',' << b.top << ' ' << b.right << ',' << b.bottom);
                    check(a, b);
                }
}

} // namespace

TEST(Rectangles, MeetWhereBothAre)
{
    ForAllPairs([](const RECT& a, const RECT& b) {
        const Pixels both = Combined(a, b, [](bool x, bool y) { return x && y; });
        RECT result = {9, 9, 9, 9};
        EXPECT_EQ(IntersectRect(&result, &a, &b) != 0, !IsNone(both));
        EXPECT_EQ(PixelsOf(result), both);
        const RECT empty = {};
        EXPECT_TRUE(!IsNone(both) || EqualRect(&result, &empty));
    });
}

TEST(Rectangles, UniteToTheirHull)
{
    ForAllPairs([](const RECT& a, const RECT& b) {
        RECT hull, result = {};
        IsRectangle(Combined(a, b, [](bool x, bool y) { return x || y; }), hull);
        const bool any = !IsRectEmpty(&a) || !IsRectEmpty(&b);
        EXPECT_EQ(UnionRect(&result, &a, &b) != 0, any);
        EXPECT_TRUE(!any || EqualRect(&result, &hull));
    });
}

TEST(Rectangles, SubtractWhenARectangleIsLeft)
{
    ForAllPairs([](const RECT& a, const RECT& b) {
        if (IsRectEmpty(&a))
            return;
        RECT left, result = {};
        const Pixels rest = Combined(a, b, [](bool x, bool y) { return x && !y; });
        const bool simple = IsRectangle(rest, left);
        EXPECT_EQ(SubtractRect(&result, &a, &b) != 0, !IsNone(rest));
        EXPECT_TRUE(IsNone(rest) || EqualRect(&result, simple ? &left : &a));
    });
}

TEST(Rectangles, AreSetMovedAndGrown)
{
    RECT rect, copy;
    EXPECT_TRUE(SetRect(&rect, 1, 2, 3, 4));
    EXPECT_TRUE(CopyRect(&copy, &rect));
    EXPECT_TRUE(EqualRect(&rect, &copy));
    EXPECT_TRUE(InflateRect(&rect, 2, -1));
    EXPECT_TRUE(OffsetRect(&rect, 10, 20));
    const RECT expected = {9, 23, 15, 23};
    EXPECT_TRUE(EqualRect(&rect, &expected));
    EXPECT_TRUE(IsRectEmpty(&rect)); // no height is left
    EXPECT_FALSE(EqualRect(&rect, &copy));
    EXPECT_TRUE(SetRectEmpty(&rect));
    EXPECT_TRUE(IsRectEmpty(&rect));
    const RECT one = {3, 3, 4, 4};
    EXPECT_TRUE(PtInRect(&one, {3, 3}));
    EXPECT_FALSE(PtInRect(&one, {4, 3}));
    EXPECT_FALSE(PtInRect(&one, {3, 4}));
}

#include "Polylines.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Coordinates = std::array<double, 3>;

int Check(Coordinates a1, Coordinates a2, Coordinates b1, Coordinates b2, int bCross)
{
    return CGeomFunc::CheckLineIntersection(a1.data(), a2.data(), b1.data(), b2.data(), bCross);
}

Points3D& MakeLine(Points3D& line, std::initializer_list<Coordinates> points)
{
    for (const Coordinates& p : points)
        AddPoint(line, p[0], p[1], p[2]);
    return line;
}

} // namespace

TEST(Polyline, SegmentsMeet)
{
    const struct {
        const char* label;
        Coordinates a1, a2, b1, b2;
        int apart, cross; // with bCross 0 and 1
    } rows[] = {
        {"cross", {0, 0, 0}, {2, 2, 0}, {0, 2, 0}, {2, 0, 0}, 1, 1},
        {"pass above", {0, 0, 0}, {2, 2, 0}, {0, 2, 1e-3}, {2, 0, 1e-3}, 0, 0},
        {"apart", {0, 0, 0}, {1, 0, 0}, {3, 1, 0}, {4, 2, 0}, 0, 0},
        {"share an end", {0, 0, 0}, {1, 0, 0}, {1, 0, 0}, {2, 1, 0}, 0, 1},
        {"share their starts", {0, 0, 0}, {1, 0, 0}, {0, 0, 0}, {2, 1, 0}, 0, 1},
        {"share their ends", {0, 0, 0}, {1, 0, 0}, {2, 1, 0}, {1, 0, 0}, 0, 1},
        {"ends 5e-11 apart", {0, 0, 0}, {1, 0, 0}, {1, 5e-11, 0}, {2, 1, 0}, 1, 1},
        {"go on straight", {0, 0, 0}, {1, 0, 0}, {1, 0, 0}, {2, 0, 0}, 0, 1},
        {"turn back", {0, 0, 0}, {2, 0, 0}, {2, 0, 0}, {1, 0, 0}, 1, 1},
        {"the same", {0, 0, 0}, {2, 0, 0}, {0, 0, 0}, {2, 0, 0}, 1, 1},
        {"start touches within", {0, 0, 0}, {2, 0, 0}, {1, 0, 0}, {1, 1, 0}, 1, 1},
        {"touches at 0.9e-10", {0, 0, 0}, {2, 0, 0}, {1, 0.9e-10, 0}, {1, 1, 0}, 1, 1},
        {"overlap in line", {0, 0, 0}, {2, 0, 0}, {1, 0, 0}, {3, 0, 0}, 1, 1},
        {"within the other, in line", {0, 0, 0}, {3, 0, 0}, {1, 0, 0}, {2, 0, 0}, 1, 1},
        {"in line, apart", {0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}, 0, 0},
        {"side by side", {0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}, 0, 0},
        {"end short by half the slack", {0, 0, 0}, {2, 0, 0}, {1, 0.5e-7, 0}, {1, 1, 0}, 1, 1},
        {"end short by twice the slack", {0, 0, 0}, {2, 0, 0}, {1, 2e-7, 0}, {1, 1, 0}, 0, 0},
        {"a point on the other", {0, 0, 0}, {2, 0, 0}, {1, 0, 0}, {1, 0, 0}, 1, 1},
        {"a point at the other's end", {0, 0, 0}, {2, 0, 0}, {2, 0, 0}, {2, 0, 0}, 1, 1},
        {"a point beside the other", {0, 0, 0}, {2, 0, 0}, {1, 1, 0}, {1, 1, 0}, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(Check(row.a1, row.a2, row.b1, row.b2, 0), row.apart);
        EXPECT_EQ(Check(row.b1, row.b2, row.a1, row.a2, 0), row.apart);
        EXPECT_EQ(Check(row.a2, row.a1, row.b1, row.b2, 7), row.cross);
        Points3D a, b;
        EXPECT_EQ(CGeomFunc::CheckPolylineCrossIntersection(MakeLine(a, {row.a1, row.a2}),
                                                            MakeLine(b, {row.b1, row.b2})),
                  row.cross);
        Points3D line;
        if (row.a2 == row.b1) {
            EXPECT_EQ(CGeomFunc::CheckPolylineSelfIntersection(MakeLine(line, {row.a1, row.a2, row.b2})),
                      row.apart);
        }
    }
}

TEST(Polyline, TooFewPoints)
{
    Points3D none, one, two;
    AddPoint(one, 0, 0);
    AddPoint(two, 0, 0);
    AddPoint(two, 0, 0);
    EXPECT_EQ(CGeomFunc::CheckPolylineSelfIntersection(none), 0);
    EXPECT_EQ(CGeomFunc::CheckPolylineSelfIntersection(two), 0);
    EXPECT_EQ(CGeomFunc::CheckPolylineCrossIntersection(one, two), 0);
    EXPECT_EQ(CGeomFunc::CheckPolylineCrossIntersection(two, none), 0);
    EXPECT_EQ(CGeomFunc::CheckPolylineCrossIntersection(two, two), 1);
}

// Alone, with a chord across, a touch, a near miss, a copy of a point: at any place of the polyline.
TEST(Polyline, AnswersAsPairByPair)
{
    const double offsets[] = {0.0, 0.9e-10, 1.1e-10, 0.5e-7, 1.5e-7, 1e-3};
    int answers[2] = {};
    for (const PolylineFamily& family : kPolylineFamilies) {
        SCOPED_TRACE(family.label);
        Random random(61);
        for (int n : {3, 4, 9, 17, 40, 150, 260}) {
            for (int change = 0; change < 12; ++change) {
                SCOPED_TRACE(testing::Message() << n << " points, change " << change);
                Points3D line;
                Fill(line, family, random, n);
                const auto pick = [&] { return static_cast<int>((random.Number(1.0) + 1.0) / 2.0 * n); };
                if (change > 0)
                    line[pick()] = line[pick()];
                if (change > 1)
                    line[pick()].z += offsets[change % 6];
                if (change > 6)
                    line[pick()].x += offsets[change % 6];
                const int expected = LiteralSelf(line);
                ++answers[expected];
                ASSERT_EQ(CGeomFunc::CheckPolylineSelfIntersection(line), expected);
            }
        }
    }
    EXPECT_GT(answers[0], 200);
    EXPECT_GT(answers[1], 200);
}

// However far rounding moves the points of long strokes, their joints are joints.
TEST(Polyline, LongStrokesMeetAtTheirJointsOnly)
{
    Random random(65);
    for (int round = 0; round < 100; ++round) {
        Points3D line;
        Fill(line, kPolylineFamilies[4], random, 160);
        ASSERT_EQ(LiteralSelf(line), 0) << round;
        ASSERT_EQ(CGeomFunc::CheckPolylineSelfIntersection(line), 0) << round;
    }
}

TEST(Polyline, TwoAnswerAsPairByPair)
{
    const double shifts[] = {0.0, 1e-7, 0.3, 100.0};
    for (const PolylineFamily& family : kPolylineFamilies) {
        for (const PolylineFamily& other : kPolylineFamilies) {
            SCOPED_TRACE(testing::Message() << family.label << " and " << other.label);
            Random random(62);
            for (double shift : shifts) {
                Points3D a, b;
                Fill(a, family, random, 60);
                Fill(b, other, random, 35);
                for (int i = 0; i < b.GetSize(); ++i)
                    b[i].z += shift;
                const int expected = LiteralCross(a, b);
                ASSERT_EQ(CGeomFunc::CheckPolylineCrossIntersection(a, b), expected) << shift;
                ASSERT_EQ(CGeomFunc::CheckPolylineCrossIntersection(b, a), LiteralCross(b, a)) << shift;
            }
        }
    }
}

// The one contact among many segments lies wherever it likes.
TEST(Polyline, FindsTheOneContact)
{
    Random random(63);
    for (int family : {0, 1, 2, 5, 6, 7, 8, 9, 11}) {
        SCOPED_TRACE(kPolylineFamilies[family].label);
        Points3D line;
        Fill(line, kPolylineFamilies[family], random, 2000);
        EXPECT_EQ(CGeomFunc::CheckPolylineSelfIntersection(line), 0);
        for (int i : {1, 7, 8, 9, 250, 1023, 1024, 1500, 1998}) {
            SCOPED_TRACE(i);
            Points3D touching;
            AddPoint(touching, line[i].x, line[i].y, line[i].z);
            AddPoint(touching, line[i].x, line[i].y, line[i].z + 10.0);
            EXPECT_EQ(CGeomFunc::CheckPolylineCrossIntersection(line, touching), 1);
            EXPECT_EQ(CGeomFunc::CheckPolylineCrossIntersection(touching, line), 1);
            touching[0].z += 1e-3;
            EXPECT_EQ(CGeomFunc::CheckPolylineCrossIntersection(line, touching),
                      LiteralCross(line, touching));
        }
        const T_POINT3D &p = line[700], q = line[701]; // a contact with a corner alone would not count
        AddPoint(line, (p.x + q.x) / 2, (p.y + q.y) / 2, (p.z + q.z) / 2);
        EXPECT_EQ(CGeomFunc::CheckPolylineSelfIntersection(line), 1);
    }
}

// What is not finite, and a degeneracy tolerance that the host has set, give what pair by pair gives.
TEST(Polyline, OddCoordinatesAndTolerances)
{
    const double odd[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                          -1e160, 1e308};
    Random random(64);
    for (double value : odd) {
        for (int at : {0, 100, 299}) {
            SCOPED_TRACE(testing::Message() << value << " at " << at);
            Points3D line, other;
            Fill(line, kPolylineFamilies[0], random, 300);
            Fill(other, kPolylineFamilies[6], random, 50);
            line[at].y = value;
            EXPECT_EQ(CGeomFunc::CheckPolylineSelfIntersection(line), LiteralSelf(line));
            EXPECT_EQ(CGeomFunc::CheckPolylineCrossIntersection(line, other), LiteralCross(line, other));
        }
    }
    const double usual = CMathFunc::m_NormalZero;
    for (double tolerance : {0.0, -1.0, 1e-300, 1e-3, 5.0, std::numeric_limits<double>::quiet_NaN()}) {
        SCOPED_TRACE(tolerance);
        CMathFunc::m_NormalZero = tolerance;
        Points3D line, other;
        Fill(line, kPolylineFamilies[0], random, 300);
        Fill(other, kPolylineFamilies[6], random, 50);
        AddPoint(other, other[49].x, other[49].y, other[49].z);
        EXPECT_EQ(CGeomFunc::CheckPolylineSelfIntersection(line), LiteralSelf(line));
        EXPECT_EQ(CGeomFunc::CheckPolylineSelfIntersection(other), LiteralSelf(other));
        EXPECT_EQ(CGeomFunc::CheckPolylineCrossIntersection(line, other), LiteralCross(line, other));
    }
    CMathFunc::m_NormalZero = usual;
}

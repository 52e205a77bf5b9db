// CGeomFunc: segments and polylines in space.
#include "GeomFunc.h"

#include "BoxGrid.h"
#include "BoxTree.h"
#include "BoxView.h"
#include "ChordGrid.h"
#include "MathFunc.h"
#include "SegmentPair.h"
#include "SegmentRuns.h"

#include <algorithm>
#include <limits>
#include <new>

namespace {

constexpr double kContact = 1e-10;

bool SamePoint(const double* a, const double* b)
{
    return a[0] == b[0] && a[1] == b[1] && a[2] == b[2];
}

bool ShareAnEnd(const double* a1, const double* a2, const double* b1, const double* b2)
{
    return SamePoint(a1, b1) || SamePoint(a1, b2) || SamePoint(a2, b1) || SamePoint(a2, b2);
}

enum class Answer { kNo, kYes, kOpen };

// Compares pairs of segments one after the other, for as long as the budget lasts.
class PairWalk
{
public:
    explicit PairWalk(LONGLONG budget) : m_budget(budget) {}

    Answer Itself(const PolylineView& line)
    {
        for (int i = 0; i < line.segments; ++i) {
            const Answer answer = Row(line.points + i, line, i + 1, 0);
            if (answer != Answer::kNo)
                return answer;
        }
        return Answer::kNo;
    }

    Answer Both(const PolylineView& a, const PolylineView& b)
    {
        for (int i = 0; i < a.segments; ++i) {
            const Answer answer = Row(a.points + i, b, 0, 1);
            if (answer != Answer::kNo)
                return answer;
        }
        return Answer::kNo;
    }

private:
    Answer Row(const T_POINT3D* segment, const PolylineView& line, int first, int bCross)
    {
        const int end = static_cast<int>(std::min<LONGLONG>(line.segments, first + m_budget));
        m_budget -= end - first;
        for (int j = first; j < end; ++j)
            if (SegmentsMeet(segment, line.points + j, bCross))
                return Answer::kYes;
        return end < line.segments ? Answer::kOpen : Answer::kNo;
    }

    LONGLONG m_budget;
};

constexpr LONGLONG kAllPairs = std::numeric_limits<LONGLONG>::max() / 2;

// So many pairs cost less than a tree: where the first ones meet, nothing is lost by looking at them first.
LONGLONG FirstPairs(LONGLONG segments)
{
    return 128 + segments / 4;
}

bool MeetsOnTheWay(const SegmentRuns& runs)
{
    for (int run = 0; run < runs.Count(); ++run)
        if (runs.MeetsOnTheWay(run))
            return true;
    return false;
}

// Whether runs meet that do not follow each other, by the grid; kOpen when it is of no use.
Answer GridMeetsItself(const SegmentRuns& runs)
{
    const BoxGrid grid(runs.Boxes());
    if (!grid.IsUsable())
        return Answer::kOpen;
    const auto meet = [&](int run, int other) { return other > run + 1 && runs.Meet(run, runs, other, 0); };
    return grid.AnyPair(meet) ? Answer::kYes : Answer::kNo;
}

Answer GridMeets(const SegmentRuns& a, const SegmentRuns& b)
{
    const BoxGrid grid(b.Boxes());
    if (!grid.IsUsable())
        return Answer::kOpen;
    for (int run = 0; run < a.Count(); ++run)
        if (grid.AnyNear(a.BoxOf(run), [&](int its) { return a.Meet(run, b, its, 1); }))
            return Answer::kYes;
    return Answer::kNo;
}

bool MeetsItself(const PolylineView& line)
{
    const BoxView view(&line, 1);
    if (!view.IsUsable())
        return PairWalk(kAllPairs).Itself(line) == Answer::kYes;
    const SegmentRuns& runs = view.Runs(0);
    if (MeetsOnTheWay(runs))
        return true;
    if (view.IsTangle())
        return ChordGrid(&line, 1, view.Margin()).AnyMeet();
    const Answer answer = GridMeetsItself(runs);
    return answer == Answer::kOpen ? BoxTree(runs).MeetsItself() : answer == Answer::kYes;
}

bool Meet(const PolylineView& a, const PolylineView& b)
{
    const PolylineView lines[] = {a, b};
    const BoxView view(lines, 2);
    if (!view.IsUsable())
        return PairWalk(kAllPairs).Both(a, b) == Answer::kYes;
    const SegmentRuns& first = view.Runs(0);
    const SegmentRuns& second = view.Runs(1);
    if (view.IsTangle())
        return ChordGrid(lines, 2, view.Margin()).AnyMeet();
    const Answer answer = GridMeets(first, second);
    return answer == Answer::kOpen ? BoxTree(first).Meets(BoxTree(second)) : answer == Answer::kYes;
}

PolylineView ViewOf(CArray<T_POINT3D, T_POINT3D&>& points)
{
    return {points.GetData(), points.GetSize() - 1};
}

} // namespace

int CGeomFunc::CheckLineIntersection(double* const a1, double* const a2, double* const b1, double* const b2,
                                     int bCross)
{
    const double distances[] = {
        CMathFunc::mathDistanceToLine(a1, a2, b1), CMathFunc::mathDistanceToLine(a1, a2, b2),
        CMathFunc::mathDistanceToLine(b1, b2, a1), CMathFunc::mathDistanceToLine(b1, b2, a2)};
    if (std::all_of(std::begin(distances), std::end(distances), [](double d) { return d >= kContact; })) {
        double distance = 0.0;
        double crossing[3];
        return CMathFunc::mathIntersectLine2(a1, a2, b1, b2, 0.0, distance, crossing);
    }
    const auto contacts =
        std::count_if(std::begin(distances), std::end(distances), [](double d) { return d < kContact; });
    return bCross != 0 || contacts != 2 || !ShareAnEnd(a1, a2, b1, b2);
}

int CGeomFunc::CheckPolylineSelfIntersection(CArray<T_POINT3D, T_POINT3D&>& pl)
{
    if (pl.GetSize() < 3)
        return 0;
    const PolylineView line = ViewOf(pl);
    const Answer early = PairWalk(FirstPairs(line.segments)).Itself(line);
    if (early != Answer::kOpen)
        return early == Answer::kYes;
    try {
        return MeetsItself(line);
    } catch (const std::bad_alloc&) {
        return PairWalk(kAllPairs).Itself(line) == Answer::kYes;
    }
}

int CGeomFunc::CheckPolylineCrossIntersection(CArray<T_POINT3D, T_POINT3D&>& a,
                                              CArray<T_POINT3D, T_POINT3D&>& b)
{
    if (a.GetSize() < 2 || b.GetSize() < 2)
        return 0;
    const PolylineView first = ViewOf(a);
    const PolylineView second = ViewOf(b);
    const Answer early = PairWalk(FirstPairs(LONGLONG{first.segments} + second.segments)).Both(first, second);
    if (early != Answer::kOpen)
        return early == Answer::kYes;
    try {
        return Meet(first, second);
    } catch (const std::bad_alloc&) {
        return PairWalk(kAllPairs).Both(first, second) == Answer::kYes;
    }
}

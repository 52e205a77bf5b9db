// A box along the axes; empty at first.
#pragma once

#include "Vec3.h"

#include <limits>

struct Box3 {
    static constexpr double kInfinite = std::numeric_limits<double>::infinity();

    double low[3] = {kInfinite, kInfinite, kInfinite};
    double high[3] = {-kInfinite, -kInfinite, -kInfinite};

    void Include(const Vec3& from, const Vec3& to)
    {
        for (int axis = 0; axis < 3; ++axis) {
            low[axis] = from[axis] < low[axis] ? from[axis] : low[axis];
            high[axis] = to[axis] > high[axis] ? to[axis] : high[axis];
        }
    }
    void Include(const Vec3& p) { Include(p, p); }
    void Include(const Box3& box) { Include(Load(box.low), Load(box.high)); }
    void Grow(double margin)
    {
        for (int axis = 0; axis < 3; ++axis) {
            low[axis] -= margin;
            high[axis] += margin;
        }
    }
    Vec3 Size() const { return Load(high) - Load(low); }
    // Without branches: the answers come in no order that a processor could learn.
    bool Overlaps(const Box3& other) const
    {
        int overlaps = 1;
        for (int axis = 0; axis < 3; ++axis)
            overlaps &= int(low[axis] <= other.high[axis]) & int(other.low[axis] <= high[axis]);
        return overlaps != 0;
    }
};

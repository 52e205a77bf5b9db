// Random mappings with their results beside what those were made of.
#pragma once

#include "MemoryContext.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

// `result` stands for numerator / denominator.
struct MappedNumber {
    LONGLONG result, numerator, denominator;

    double TwiceTheError() const
    {
        return static_cast<double>(2 * std::llabs(result * denominator - numerator));
    }
    double Divisor() const { return static_cast<double>(std::llabs(denominator)); }
};

struct MappingRange {
    int leastExtent, mostExtent, mostCoordinate;
};

template <class Check>
void ForRandomMappings(const MappingRange& range, Check check)
{
    std::mt19937 random(8);
    const auto number = [&](int least, int most) {
        return least + static_cast<LONG>(random() % static_cast<unsigned>(most - least + 1));
    };
    const auto coordinate = [&] { return number(-range.mostCoordinate, range.mostCoordinate); };
    const auto extent = [&] { return number(range.leastExtent, range.mostExtent) * (random() % 2 ? 1 : -1); };
    const MemoryContext dc;
    for (int i = 0; i < 2000; ++i) {
        const SIZE window = {extent(), extent()}, viewport = {extent(), extent()};
        const POINT from = {coordinate(), coordinate()}, windowOrigin = {coordinate(), coordinate()},
                    viewportOrigin = {coordinate(), coordinate()};
        dc.Scale(window, viewport);
        SetWindowOrgEx(dc, windowOrigin.x, windowOrigin.y, nullptr);
        SetViewportOrgEx(dc, viewportOrigin.x, viewportOrigin.y, nullptr);
        POINT device = from, logical = from;
        ASSERT_TRUE(LPtoDP(dc, &device, 1) && DPtoLP(dc, &logical, 1));
        const MappedNumber numbers[] = {
            {device.x - viewportOrigin.x, LONGLONG{from.x - windowOrigin.x} * viewport.cx, window.cx},
            {device.y - viewportOrigin.y, LONGLONG{from.y - windowOrigin.y} * viewport.cy, window.cy},
            {logical.x - windowOrigin.x, LONGLONG{from.x - viewportOrigin.x} * window.cx, viewport.cx},
            {logical.y - windowOrigin.y, LONGLONG{from.y - viewportOrigin.y} * window.cy, viewport.cy}};
        for (const MappedNumber& one : numbers)
            check(one);
    }
}

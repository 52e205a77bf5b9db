// What the geometry benchmarks work on, the same in every run.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace bench {

using Points = std::vector<std::array<double, 3>>;

// Evenly spread numbers.
class Numbers
{
public:
    explicit Numbers(std::uint64_t seed) : m_state(seed) {}
    // In [from, to).
    double Next(double from = 0.0, double to = 1.0);

private:
    std::uint64_t m_state;
};

Points RandomPoints(std::size_t count, double size, std::uint64_t seed);

// A simple polygon round the origin: n vertices at even angles, 60 to 100 away.
Points Star(std::size_t n);

// A polyline of n vertices that winds outwards and never meets itself.
Points Spiral(std::size_t n);

// The sum of all coordinates, which tells results apart.
double Sum(const Points& points);

} // namespace bench

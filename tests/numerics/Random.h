// Points and directions for property tests, the same in every run.
#pragma once

#include <array>
#include <random>

using Point = std::array<double, 3>;

class Random
{
public:
    explicit Random(unsigned seed) : m_engine(seed) {}

    // In [-size, size), evenly spread by this header's own rule: the standard's distributions differ by
    // platform.
    double Number(double size = 10.0)
    {
        return (static_cast<double>(m_engine()) / 4294967296.0 * 2.0 - 1.0) * size;
    }
    Point Vector(double size = 10.0) { return {Number(size), Number(size), Number(size)}; }

private:
    std::mt19937 m_engine;
};

inline long double LongDot(const Point& a, const Point& b)
{
    return static_cast<long double>(a[0]) * b[0] + static_cast<long double>(a[1]) * b[1] +
           static_cast<long double>(a[2]) * b[2];
}

inline Point Minus(const Point& a, const Point& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

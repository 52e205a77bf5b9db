#include "Workload.h"

#include <cmath>
#include <numbers>

namespace bench {

// Splitmix64.
double Numbers::Next(double from, double to)
{
    std::uint64_t z = m_state += 0x9E3779B97F4A7C15U;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
    z ^= z >> 31;
    return from + (to - from) * (static_cast<double>(z >> 11) / 9007199254740992.0);
}

Points RandomPoints(std::size_t count, double size, std::uint64_t seed)
{
    Numbers numbers(seed);
    Points points(count);
    for (auto& point : points) {
        for (double& coordinate : point)
            coordinate = numbers.Next(-size, size);
    }
    return points;
}

Points Star(std::size_t n)
{
    Numbers numbers(5);
    Points points(n);
    for (std::size_t i = 0; i < n; ++i) {
        const double angle = 2.0 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(n);
        const double radius = numbers.Next(60.0, 100.0);
        points[i] = {radius * std::cos(angle), radius * std::sin(angle), 0.0};
    }
    return points;
}

Points Spiral(std::size_t n)
{
    Numbers numbers(4);
    Points points(n);
    for (std::size_t i = 0; i < n; ++i) {
        const double t = 2.0 * std::sqrt(static_cast<double>(i) + 1.0);
        points[i] = {t * std::cos(t) + numbers.Next(-0.005, 0.005),
                     t * std::sin(t) + numbers.Next(-0.005, 0.005), 0.0};
    }
    return points;
}

double Sum(const Points& points)
{
    double sum = 0.0;
    for (const auto& point : points)
        sum += point[0] + 2.0 * point[1] + 3.0 * point[2];
    return sum;
}

} // namespace bench

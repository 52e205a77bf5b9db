// Random operations: the same on every platform, as many as ZEK_RANDOM_STEPS says.
#pragma once

#include <cstdint>
#include <cstdlib>

class Randoms
{
public:
    explicit Randoms(std::uint64_t seed) : m_state(seed) {}

    // From 0 to `limit` - 1.
    int Below(int limit)
    {
        return static_cast<int>((Next() >> 32) * static_cast<std::uint64_t>(limit) >> 32);
    }
    bool OneIn(int chances) { return Below(chances) == 0; }

private:
    std::uint64_t Next()
    {
        std::uint64_t z = m_state += 0x9E3779B97F4A7C15U;
        z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9U;
        z = (z ^ z >> 27) * 0x94D049BB133111EBU;
        return z ^ z >> 31;
    }

    std::uint64_t m_state;
};

inline int RandomSteps(int usual)
{
    const char* wanted = std::getenv("ZEK_RANDOM_STEPS");
    return wanted ? std::atoi(wanted) : usual;
}

// One piece of work done by the library and by its peers on the same data in the same run.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace bench {

// Does the whole work once and answers a number that all contenders have to agree on.
using Work = std::function<double()>;

struct Rival {
    std::string name;
    Work work;
};

// Prints nanoseconds of each of `operations` for every contender, and how many times the first's each other's
// is. Ends the program when one answers something else than the first (beyond `tolerance`, relative).
// Returns the first's nanoseconds.
double Compare(const std::string& label, std::size_t operations, const std::vector<Rival>& rivals,
               double tolerance = 1e-9);

// Keeps the compiler from dropping what writes to memory.
inline void Use(const void* memory)
{
    asm volatile("" : : "r"(memory) : "memory");
}

} // namespace bench

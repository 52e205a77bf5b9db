// A host's allocations: so many live blocks of 16 to 255 bytes, replaced in random order.
//
//   blocks_VARIANT LIVE PAIRS
//
// Prints the nanoseconds of a pair of new and delete (the least of five runs), or of malloc and free in the
// plain variant, and those of a record of the leak log in the tracked one (0 in others).
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#ifdef WITH_TRACKER
#define MEMORY_LEAK_TESTER_INSTANCE
#include <MemoryLeakTester.h>
#endif

namespace {

std::uint64_t g_state = 5;

std::uint32_t Below(std::uint32_t bound)
{
    std::uint64_t z = (g_state += 0x9E3779B97F4A7C15U);
    z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9U;
    z = (z ^ z >> 27) * 0x94D049BB133111EBU;
    return static_cast<std::uint32_t>(((z ^ z >> 31) >> 32) * bound >> 32);
}

double Now()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::nano>(now).count();
}

#ifdef WITH_TRACKER
char* Make(std::uint32_t size)
{
    return new char[size];
}
void End(char* block)
{
    delete[] block;
}
double LogTime()
{
    const double start = Now();
    AllocMap::Instance()->LogMemoryLeak();
    return Now() - start;
}
#else
char* Make(std::uint32_t size)
{
    return static_cast<char*>(std::malloc(size));
}
void End(char* block)
{
    std::free(block);
}
double LogTime()
{
    return 0;
}
#endif

void Replace(std::vector<char*>& blocks)
{
    char*& block = blocks[Below(static_cast<std::uint32_t>(blocks.size()))];
    if (block)
        End(block);
    block = Make(16 + Below(240));
    block[0] = 1;
}

} // namespace

int main(int argc, char** argv)
{
    const long live = argc > 1 ? std::atol(argv[1]) : 100'000;
    const long pairs = argc > 2 ? std::atol(argv[2]) : 1'000'000;
    std::vector<char*> blocks(static_cast<std::size_t>(live));
    for (long i = 0; i < 3 * live; ++i)
        Replace(blocks);
    double least = 1e300;
    for (int run = 0; run < 5; ++run) {
        const double start = Now();
        for (long i = 0; i < pairs; ++i)
            Replace(blocks);
        const double time = (Now() - start) / static_cast<double>(pairs);
        least = time < least ? time : least;
    }
    std::printf("%.2f %.2f\n", least, LogTime() / static_cast<double>(live));
    std::fflush(stdout);
    std::_Exit(0);
}

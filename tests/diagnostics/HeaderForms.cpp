// Compiled with all warnings, and never run: the header among others.
#include <cstdio>
#include <vector>

#define MEMORY_LEAK_TESTER_INSTANCE
#include <MemoryLeakTester.h>

#include <filesystem>
#include <future>
#include <memory>
#include <string>
#include <thread>

#include <ZEK_lib.h>
#include <afxwin.h>

struct alignas(64) Wide {
    int number = 0;
};

int main()
{
    auto* one = new int;
    auto* array = new std::string[3];
    auto* quiet = new (std::nothrow) Wide;
    auto* wide = new (std::align_val_t(128)) Wide[2];
    Wide storage;
    Wide* placed = new (&storage) Wide;
    placed = ::new (static_cast<void*>(&storage)) Wide;
    std::printf("%p\n", static_cast<void*>(placed));
    delete one, delete[] array;
    if (quiet)
        delete quiet;
    else
        ::delete quiet;
    delete[] wide;
    return std::make_unique<int>(0) ? 0 : 1;
}

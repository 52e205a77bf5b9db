#include "Host.h"

#include <cstdlib>
#include <new>

namespace plain {

void Free(int* block)
{
    delete block;
}

void Free(char* array)
{
    delete[] array;
}

void FreeAligned(char* block)
{
    ::operator delete(block, std::align_val_t(64));
}

void Release(void* block)
{
    std::free(block);
}

int* Make()
{
    return new int(3);
}

std::string Text()
{
    return std::string(200, 'x');
}

Base::~Base()
{
    delete Make(); // frees within a delete of somebody else's
}

Owner* MakeOwner()
{
    return new Owner;
}

} // namespace plain

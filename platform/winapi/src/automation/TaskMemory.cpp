// Memory that one partner allocates and the other frees.
#include <objbase.h>

#include <cstdlib>

LPVOID WINAPI CoTaskMemAlloc(SIZE_T size)
{
    return std::malloc(size ? size : 1);
}

LPVOID WINAPI CoTaskMemRealloc(LPVOID block, SIZE_T size)
{
    if (size != 0 || !block)
        return std::realloc(block, size ? size : 1);
    std::free(block);
    return nullptr;
}

void WINAPI CoTaskMemFree(LPVOID block)
{
    std::free(block);
}

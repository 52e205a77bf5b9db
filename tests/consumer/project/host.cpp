// The smallest host: one header, one library, nothing else.
#include <ZEK_lib.h>

#include <cstdio>

int main()
{
    CArray<UINT, UINT> nodes;
    for (UINT id : {1u, 3u, 5u, 7u, 9u, 15u, 17u, 18u, 19u, 20u})
        nodes.Add(id);
    CNumericOptimizer optimizer;
    std::puts(optimizer.OptimizeSortedArray(nodes));
    return 0;
}

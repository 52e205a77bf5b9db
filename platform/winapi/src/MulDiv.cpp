#include <winbase.h>

#include <cstdlib>
#include <limits>

int WINAPI MulDiv(int a, int b, int divisor)
{
    if (divisor == 0)
        return -1;
    const LONGLONG product = LONGLONG{a} * b, magnitude = std::llabs(LONGLONG{divisor});
    const LONGLONG rounded = (std::llabs(product) + magnitude / 2) / magnitude;
    const LONGLONG result = (product < 0) == (divisor < 0) ? rounded : -rounded;
    const bool fits = result >= std::numeric_limits<int>::min() && result <= std::numeric_limits<int>::max();
    return fits ? static_cast<int>(result) : -1;
}

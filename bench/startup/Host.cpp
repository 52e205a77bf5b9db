// The smallest host: it adds two vectors.
#include <ZEK_lib.h>

int main(int argc, char**)
{
    const double a[3] = {1.0, 2.0, static_cast<double>(argc)};
    const double b[3] = {4.0, 5.0, 6.0};
    double sum[3];
    CMathFunc::Add(a, b, sum);
    return sum[0] == 5.0 && sum[2] == argc + 6.0 ? 0 : 1;
}

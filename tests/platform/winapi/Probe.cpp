// The smallest module that a test can load.
#include <afxver_.h>

extern "C" AFX_EXPORT_ int ProbeAnswer(int value);

int ProbeAnswer(int value)
{
    return 2 * value + 1;
}

#include "io.h"

#include <unistd.h>

int _isatty(int descriptor)
{
    return isatty(descriptor);
}

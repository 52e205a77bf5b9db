// Descriptors of the run-time library.
#pragma once

#include "windef.h"

// Not 0 when the descriptor is a terminal.
WINBASEAPI int _isatty(int descriptor);

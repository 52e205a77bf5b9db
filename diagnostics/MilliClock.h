// The home platform's clock(): milliseconds of wall-clock time. Other platforms count something else.
#pragma once

#include <windef.h>

// Since the library's load; wraps after 24.8 days.
LONG MilliClock();

// Error codes of the functions that this adapter offers.
#pragma once

#include "windef.h"

#define ERROR_SUCCESS 0L
#define NO_ERROR 0L

// Kernel functions: error code, modules, files, paths, time, environment.
#pragma once

#include "windef.h"

// Sets (`value` null: removes) a variable of the process's environment.
WINBASEAPI BOOL WINAPI SetEnvironmentVariableA(LPCSTR name, LPCSTR value);
#define SetEnvironmentVariable SetEnvironmentVariableA

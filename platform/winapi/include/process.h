// Threads as the run-time library starts them.
#pragma once

#include "processthreadsapi.h"

// As CreateThread; 0 on failure. The caller closes the handle.
WINBASEAPI UINT_PTR _beginthreadex(void* security, unsigned stack, unsigned (*start)(void*), void* parameter,
                                   unsigned flags, unsigned* id);
// As ExitThread.
WINBASEAPI void _endthreadex(unsigned code) __attribute__((noreturn));

// Threads.
//
// Errors: functions that take a thread fail with ERROR_INVALID_HANDLE for anything else.
// Threads: any.
#pragma once

#include "fileapi.h"
#include "windef.h"

using LPTHREAD_START_ROUTINE = DWORD(WINAPI*)(LPVOID);

#define CREATE_SUSPENDED 0x00000004u
#define STACK_SIZE_PARAM_IS_A_RESERVATION 0x00010000u
#define STILL_ACTIVE 259u

#define THREAD_PRIORITY_IDLE (-15)
#define THREAD_PRIORITY_LOWEST (-2)
#define THREAD_PRIORITY_BELOW_NORMAL (-1)
#define THREAD_PRIORITY_NORMAL 0
#define THREAD_PRIORITY_ABOVE_NORMAL 1
#define THREAD_PRIORITY_HIGHEST 2
#define THREAD_PRIORITY_TIME_CRITICAL 15
#define THREAD_PRIORITY_ERROR_RETURN 0x7fffffff

// A thread that runs `start`, for CloseHandle; with CREATE_SUSPENDED it waits for ResumeThread. `stack` 0:
// the system's size. Null on failure (ERROR_INVALID_PARAMETER, ERROR_NOT_ENOUGH_MEMORY). The handle is
// signalled when the thread's own objects are gone too. Differs: a thread that is never resumed is one that
// waits to the process's end.
WINBASEAPI HANDLE WINAPI CreateThread(LPSECURITY_ATTRIBUTES security, SIZE_T stack,
                                      LPTHREAD_START_ROUTINE start, LPVOID parameter, DWORD flags,
                                      LPDWORD id);
// Differs: objects on the thread's stack are destroyed. A thread that this adapter did not make answers its
// code to nobody.
WINBASEAPI void WINAPI ExitThread(DWORD code) __attribute__((noreturn));
// STILL_ACTIVE while it runs.
WINBASEAPI BOOL WINAPI GetExitCodeThread(HANDLE thread, LPDWORD code);

// The suspend count before: 1 for a thread made with CREATE_SUSPENDED, 0 when it runs already.
WINBASEAPI DWORD WINAPI ResumeThread(HANDLE thread);

// Fails with ERROR_INVALID_PARAMETER for a priority not listed above, and with ERROR_ACCESS_DENIED where the
// system does not let the process raise a thread's priority. Differs: priorities are nice values.
WINBASEAPI BOOL WINAPI SetThreadPriority(HANDLE thread, int priority);
// THREAD_PRIORITY_ERROR_RETURN on failure.
WINBASEAPI int WINAPI GetThreadPriority(HANDLE thread);

// Stands for the calling thread; only the functions above understand it, and WaitForSingleObject does not.
WINBASEAPI HANDLE WINAPI GetCurrentThread();

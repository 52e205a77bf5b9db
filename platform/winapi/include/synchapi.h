// Waiting: events, and handles of threads and events that are waited for.
// Threads: any.
#pragma once

#include "fileapi.h"
#include "windef.h"

#define INFINITE 0xffffffffu
#define WAIT_OBJECT_0 0u
#define WAIT_TIMEOUT 258u
#define WAIT_FAILED 0xffffffffu
#define MAXIMUM_WAIT_OBJECTS 64

// An event, for CloseHandle. One that is not `manualReset` lets one waiter through each time it is set.
// Null on failure. Differs: no names (ERROR_NOT_SUPPORTED).
WINBASEAPI HANDLE WINAPI CreateEventA(LPSECURITY_ATTRIBUTES security, BOOL manualReset, BOOL initialState,
                                      LPCSTR name);
#define CreateEvent CreateEventA
WINBASEAPI BOOL WINAPI SetEvent(HANDLE event);
WINBASEAPI BOOL WINAPI ResetEvent(HANDLE event);

// Waits until the handle is signalled: an event that is set, a thread that has ended. WAIT_OBJECT_0,
// WAIT_TIMEOUT, or WAIT_FAILED with ERROR_INVALID_HANDLE (also for handles of files).
WINBASEAPI DWORD WINAPI WaitForSingleObject(HANDLE handle, DWORD milliseconds);
// As above for `all` of them or any one: WAIT_OBJECT_0 + the index of the first that is signalled. With `all`
// no event is reset before all are set. Fails with ERROR_INVALID_PARAMETER for no or too many handles.
WINBASEAPI DWORD WINAPI WaitForMultipleObjects(DWORD count, const HANDLE* handles, BOOL all,
                                               DWORD milliseconds);

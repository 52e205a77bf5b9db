// Kernel functions: errors and their texts, local memory, environment, processes, critical sections,
// interlocked numbers and profile files. Files, modules and time have headers of their own.
#pragma once

#include "fileapi.h"
#include "libloaderapi.h"
#include "processthreadsapi.h"
#include "synchapi.h"
#include "sysinfoapi.h"
#include "windef.h"

#include <cstdarg>

// The calling thread's last error code.
WINBASEAPI DWORD WINAPI GetLastError();
WINBASEAPI void WINAPI SetLastError(DWORD code);

#define FORMAT_MESSAGE_ALLOCATE_BUFFER 0x0100u
#define FORMAT_MESSAGE_IGNORE_INSERTS 0x0200u
#define FORMAT_MESSAGE_FROM_STRING 0x0400u
#define FORMAT_MESSAGE_FROM_HMODULE 0x0800u
#define FORMAT_MESSAGE_FROM_SYSTEM 0x1000u
#define FORMAT_MESSAGE_ARGUMENT_ARRAY 0x2000u
#define FORMAT_MESSAGE_MAX_WIDTH_MASK 0x00ffu

// The text of system error or HRESULT `id`, with a line end (with MAX_WIDTH_MASK: a blank) behind it. With
// ALLOCATE_BUFFER `buffer` points at a pointer that receives at least `size` bytes for LocalFree. Answers the
// length without the terminator, 0 on failure (ERROR_MR_MID_NOT_FOUND, ERROR_INSUFFICIENT_BUFFER).
// Differs: FROM_SYSTEM only (else ERROR_INVALID_PARAMETER), English texts for the codes that the adapter
// raises, no other line width.
WINBASEAPI DWORD WINAPI FormatMessageA(DWORD flags, LPCVOID source, DWORD id, DWORD language, LPSTR buffer,
                                       DWORD size, va_list* arguments);
#define FormatMessage FormatMessageA

#define LMEM_FIXED 0x0000u
#define LMEM_ZEROINIT 0x0040u
#define LPTR (LMEM_FIXED | LMEM_ZEROINIT)

// Differs: fixed memory only.
WINBASEAPI HLOCAL WINAPI LocalAlloc(UINT flags, SIZE_T bytes);
// Null on success.
WINBASEAPI HLOCAL WINAPI LocalFree(HLOCAL memory);

// The length without the terminator; when `size` is too small the size needed with it; 0 with
// ERROR_ENVVAR_NOT_FOUND when there is no such variable. Differs: names are told apart by case.
WINBASEAPI DWORD WINAPI GetEnvironmentVariableA(LPCSTR name, LPSTR buffer, DWORD size);
#define GetEnvironmentVariable GetEnvironmentVariableA
// Sets (`value` null: removes) a variable of the process's environment.
WINBASEAPI BOOL WINAPI SetEnvironmentVariableA(LPCSTR name, LPCSTR value);
#define SetEnvironmentVariable SetEnvironmentVariableA

WINBASEAPI HANDLE WINAPI GetCurrentProcess();
WINBASEAPI DWORD WINAPI GetCurrentProcessId();
WINBASEAPI DWORD WINAPI GetCurrentThreadId();
WINBASEAPI void WINAPI ExitProcess(UINT code) __attribute__((noreturn));
// The command line as one text, arguments with blanks in quotes.
WINBASEAPI LPSTR WINAPI GetCommandLineA();
#define GetCommandLine GetCommandLineA

// A lock that its owner may take again. The member is the adapter's own.
struct CRITICAL_SECTION {
    void* Lock;
};
using LPCRITICAL_SECTION = CRITICAL_SECTION*;

WINBASEAPI void WINAPI InitializeCriticalSection(LPCRITICAL_SECTION section);
WINBASEAPI void WINAPI EnterCriticalSection(LPCRITICAL_SECTION section);
WINBASEAPI BOOL WINAPI TryEnterCriticalSection(LPCRITICAL_SECTION section);
WINBASEAPI void WINAPI LeaveCriticalSection(LPCRITICAL_SECTION section);
WINBASEAPI void WINAPI DeleteCriticalSection(LPCRITICAL_SECTION section);

// Atomic, sequentially consistent. Increment and decrement answer the new value, the others the old one.
inline LONG InterlockedIncrement(volatile LONG* value)
{
    return __atomic_add_fetch(value, 1, __ATOMIC_SEQ_CST);
}
inline LONG InterlockedDecrement(volatile LONG* value)
{
    return __atomic_sub_fetch(value, 1, __ATOMIC_SEQ_CST);
}
inline LONG InterlockedExchange(volatile LONG* target, LONG value)
{
    return __atomic_exchange_n(target, value, __ATOMIC_SEQ_CST);
}
inline LONG InterlockedExchangeAdd(volatile LONG* target, LONG value)
{
    return __atomic_fetch_add(target, value, __ATOMIC_SEQ_CST);
}
inline LONG InterlockedCompareExchange(volatile LONG* target, LONG value, LONG expected)
{
    __atomic_compare_exchange_n(target, &expected, value, false, __ATOMIC_SEQ_CST, __ATOMIC_SEQ_CST);
    return expected;
}

// Profile (.ini) files. A file name without a folder lies in the Windows folder; the functions without a
// file name mean WIN.INI there. Section and key names are compared without regard to case.
// A null `section` answers all section names, a null `key` all keys, each terminated, one more terminator
// at the end. Answers the length without the terminator; a short buffer is filled, terminated and answers
// `size` - 1 (lists: - 2).
WINBASEAPI DWORD WINAPI GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR fallback, LPSTR buffer,
                                                 DWORD size, LPCSTR file);
#define GetPrivateProfileString GetPrivateProfileStringA
WINBASEAPI DWORD WINAPI GetProfileStringA(LPCSTR section, LPCSTR key, LPCSTR fallback, LPSTR buffer,
                                          DWORD size);
#define GetProfileString GetProfileStringA
// The leading number of the value, 0 for a text without one.
WINBASEAPI UINT WINAPI GetPrivateProfileIntA(LPCSTR section, LPCSTR key, INT fallback, LPCSTR file);
#define GetPrivateProfileInt GetPrivateProfileIntA
WINBASEAPI UINT WINAPI GetProfileIntA(LPCSTR section, LPCSTR key, INT fallback);
#define GetProfileInt GetProfileIntA
// A null `value` removes the key, a null `key` the section. The file is replaced as a whole, so that a
// reader sees the old one or the new one; writers of several processes wait for each other.
WINBASEAPI BOOL WINAPI WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR file);
#define WritePrivateProfileString WritePrivateProfileStringA
WINBASEAPI BOOL WINAPI WriteProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value);
#define WriteProfileString WriteProfileStringA

// a * b / divisor to the nearest whole number, a half away from zero; -1 when it does not fit or `divisor` is 0.
WINBASEAPI int WINAPI MulDiv(int a, int b, int divisor);

// The length in bytes; 0 for a null text.
WINBASEAPI int WINAPI lstrlenA(LPCSTR text);
#define lstrlen lstrlenA

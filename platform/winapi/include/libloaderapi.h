// Modules: shared objects found, loaded and asked for their functions.
//
// Search: `NAME.DLL` is looked for as `NAME.DLL`, `libNAME.so` and `NAME.so`, in any case, beside the
// executable, beside this library, then on the system's library path; never in the current folder, nor
// through an empty or relative element of a search path. A relative name with a folder in it is looked for
// beside the executable only, and refused with `..` in it. `KERNEL32.DLL` and its sisters stand for this
// adapter itself. A missing module fails with ERROR_MOD_NOT_FOUND, a file that is none with
// ERROR_BAD_EXE_FORMAT, a missing function with ERROR_PROC_NOT_FOUND.
// Threads: any.
#pragma once

#include "windef.h"

#define DONT_RESOLVE_DLL_REFERENCES 0x0001u
#define LOAD_LIBRARY_AS_DATAFILE 0x0002u
#define LOAD_WITH_ALTERED_SEARCH_PATH 0x0008u
#define LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR 0x0100u
#define LOAD_LIBRARY_SEARCH_APPLICATION_DIR 0x0200u
#define LOAD_LIBRARY_SEARCH_USER_DIRS 0x0400u
#define LOAD_LIBRARY_SEARCH_SYSTEM32 0x0800u
#define LOAD_LIBRARY_SEARCH_DEFAULT_DIRS 0x1000u

// The module, its use count raised; null on failure.
WINBASEAPI HMODULE WINAPI LoadLibraryA(LPCSTR name);
#define LoadLibrary LoadLibraryA

// As LoadLibraryA, in the folders that the LOAD_LIBRARY_SEARCH_... flags name.
// Differs: the flags that load a file as data fail with ERROR_NOT_SUPPORTED.
WINBASEAPI HMODULE WINAPI LoadLibraryExA(LPCSTR name, HANDLE file, DWORD flags);
#define LoadLibraryEx LoadLibraryExA

WINBASEAPI BOOL WINAPI FreeLibrary(HMODULE module);

// A module that is already loaded, its count unchanged; null `name`: the executable.
WINBASEAPI HMODULE WINAPI GetModuleHandleA(LPCSTR name);
#define GetModuleHandle GetModuleHandleA

// The Win32 path of a module (null: the executable). Answers the length without the terminator; a short
// buffer is filled, terminated, and fails with ERROR_INSUFFICIENT_BUFFER, the answer being `size`.
WINBASEAPI DWORD WINAPI GetModuleFileNameA(HMODULE module, LPSTR buffer, DWORD size);
#define GetModuleFileName GetModuleFileNameA

// A function that the module itself exports, not one of the modules it uses. Differs: no ordinals.
WINBASEAPI FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name);

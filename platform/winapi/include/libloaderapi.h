// Modules: shared objects found, loaded and asked for their functions and resources.
//
// Search: `NAME.DLL` is looked for as `NAME.DLL`, `libNAME.so` and `NAME.so`, in any case, beside the
// executable, beside this library, then on the system's library path; never in the current folder, nor
// through an empty or relative element of a search path. A name with a folder in it must be a whole path, or
// it counts as missing. `KERNEL32.DLL` and its sisters stand for this adapter itself. A missing module, or one
// whose own needs are missing, fails with ERROR_MOD_NOT_FOUND, a file that is none with ERROR_BAD_EXE_FORMAT,
// a missing function with ERROR_PROC_NOT_FOUND.
// Threads: any.
#pragma once

#include "windef.h"

// Why a library's DllMain is called; zekmodule.h.
#define DLL_PROCESS_DETACH 0u
#define DLL_PROCESS_ATTACH 1u

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

// Resources: what zek_add_resources() compiled into a program, a library or a module. Kinds and names are
// numbers below 65536 made by MAKEINTRESOURCE, texts of digits behind a '#', or names in any case. A null
// module is the program.
#define MAKEINTRESOURCEA(number) reinterpret_cast<LPSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(number)))
#define MAKEINTRESOURCE MAKEINTRESOURCEA
#define IS_INTRESOURCE(name) ((reinterpret_cast<ULONG_PTR>(name) >> 16) == 0)
#define RT_MENU MAKEINTRESOURCEA(4)
#define RT_DIALOG MAKEINTRESOURCEA(5)
#define RT_STRING MAKEINTRESOURCEA(6)
#define RT_ACCELERATOR MAKEINTRESOURCEA(9)
#define RT_RCDATA MAKEINTRESOURCEA(10)
#define RT_VERSION MAKEINTRESOURCEA(16)
#define RT_MANIFEST MAKEINTRESOURCEA(24)

// Null with ERROR_RESOURCE_DATA_NOT_FOUND (the module has none), ERROR_RESOURCE_TYPE_NOT_FOUND,
// ERROR_RESOURCE_NAME_NOT_FOUND or ERROR_RESOURCE_LANG_NOT_FOUND. Of several languages the neutral one is
// taken, then the user interface's, the user's, English, any.
WINBASEAPI HRSRC WINAPI FindResourceA(HMODULE module, LPCSTR name, LPCSTR type);
#define FindResource FindResourceA
// In `language`, its primary language or neutral; 0: as FindResourceA.
WINBASEAPI HRSRC WINAPI FindResourceExA(HMODULE module, LPCSTR type, LPCSTR name, WORD language);
#define FindResourceEx FindResourceExA
// The bytes of a resource. They live as long as the module; nothing needs to be freed.
WINBASEAPI HGLOBAL WINAPI LoadResource(HMODULE module, HRSRC resource);
WINBASEAPI LPVOID WINAPI LockResource(HGLOBAL data);
WINBASEAPI DWORD WINAPI SizeofResource(HMODULE module, HRSRC resource);
// Does nothing and answers FALSE, as it should.
WINBASEAPI BOOL WINAPI FreeResource(HGLOBAL data);

// The registry: named values in a tree of keys, kept across runs.
//
// Threads: every function may be called from any thread, and several processes may share one registry.
// Errors: the functions answer ERROR_SUCCESS or an error code; they do not set the last error.
// Differs: keys have no access control (the access mask is not examined) and no class that is ever used;
// volatile keys are kept like others; symbolic links, notifications and remote registries do not exist.
// Names are texts of the active code page and are compared without case.
#pragma once

#include "windef.h"
#include "winerror.h"

#define HKEY_CLASSES_ROOT (reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(0x80000000U))))
#define HKEY_CURRENT_USER (reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(0x80000001U))))
#define HKEY_LOCAL_MACHINE (reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(0x80000002U))))
#define HKEY_USERS (reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(0x80000003U))))
#define HKEY_CURRENT_CONFIG (reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(0x80000005U))))

#define KEY_QUERY_VALUE 0x0001
#define KEY_SET_VALUE 0x0002
#define KEY_CREATE_SUB_KEY 0x0004
#define KEY_ENUMERATE_SUB_KEYS 0x0008
#define KEY_NOTIFY 0x0010
#define KEY_CREATE_LINK 0x0020
#define KEY_READ 0x20019
#define KEY_WRITE 0x20006
#define KEY_EXECUTE KEY_READ
#define KEY_ALL_ACCESS 0xF003F

#define REG_OPTION_NON_VOLATILE 0
#define REG_OPTION_VOLATILE 1
#define REG_CREATED_NEW_KEY 1
#define REG_OPENED_EXISTING_KEY 2

#define REG_NONE 0
#define REG_SZ 1
#define REG_EXPAND_SZ 2
#define REG_BINARY 3
#define REG_DWORD 4
#define REG_DWORD_LITTLE_ENDIAN 4
#define REG_DWORD_BIG_ENDIAN 5
#define REG_LINK 6
#define REG_MULTI_SZ 7
#define REG_QWORD 11

struct SECURITY_ATTRIBUTES;
using LPSECURITY_ATTRIBUTES = SECURITY_ATTRIBUTES*;

// Opens an existing key below `key`; an empty or null `subkey` opens `key` once more.
// The caller closes *result. Fails with ERROR_FILE_NOT_FOUND; *result is null then.
WINBASEAPI LONG WINAPI RegOpenKeyExA(HKEY key, LPCSTR subkey, DWORD options, REGSAM access, PHKEY result);

// Opens a key or creates it with all that are missing above it; *disposition (may be null) tells which.
WINBASEAPI LONG WINAPI RegCreateKeyExA(HKEY key, LPCSTR subkey, DWORD reserved, LPSTR cls, DWORD options,
                                       REGSAM access, LPSECURITY_ATTRIBUTES security, PHKEY result,
                                       LPDWORD disposition);

// Closing a root key does nothing and succeeds. A closed handle fails with ERROR_INVALID_HANDLE from then on.
WINBASEAPI LONG WINAPI RegCloseKey(HKEY key);

// Reads a value's type and bytes as they were written. `data` null asks for the size alone.
// Fails with ERROR_FILE_NOT_FOUND, or ERROR_MORE_DATA (*size is what is needed then, `data` untouched).
// A text written without its terminator gets one when the buffer has room for it.
WINBASEAPI LONG WINAPI RegQueryValueExA(HKEY key, LPCSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                                        LPDWORD size);

// Writes a value; a null or empty name is the key's default value.
WINBASEAPI LONG WINAPI RegSetValueExA(HKEY key, LPCSTR name, DWORD reserved, DWORD type, const BYTE* data,
                                      DWORD size);
WINBASEAPI LONG WINAPI RegDeleteValueA(HKEY key, LPCSTR name);

// Deletes a key that has no keys below it, with its values; ERROR_ACCESS_DENIED if it has.
WINBASEAPI LONG WINAPI RegDeleteKeyA(HKEY key, LPCSTR subkey);

// Names the index-th key below `key`, in ascending order of the folded names.
// *count: room in `name` before, length without the terminator after. Fails with ERROR_NO_MORE_ITEMS or
// ERROR_MORE_DATA.
WINBASEAPI LONG WINAPI RegEnumKeyExA(HKEY key, DWORD index, LPSTR name, LPDWORD count, LPDWORD reserved,
                                     LPSTR cls, LPDWORD clsCount, FILETIME* written);

// Names the index-th value and, where asked, reads its type and bytes as RegQueryValueExA does.
WINBASEAPI LONG WINAPI RegEnumValueA(HKEY key, DWORD index, LPSTR name, LPDWORD count, LPDWORD reserved,
                                     LPDWORD type, LPBYTE data, LPDWORD size);

// Counts and longest lengths; every output may be null. Lengths of names are without the terminator.
WINBASEAPI LONG WINAPI RegQueryInfoKeyA(HKEY key, LPSTR cls, LPDWORD clsCount, LPDWORD reserved,
                                        LPDWORD subkeys, LPDWORD longestSubkey, LPDWORD longestClass,
                                        LPDWORD values, LPDWORD longestName, LPDWORD longestData,
                                        LPDWORD securityLength, FILETIME* written);

// On return every finished write survives the machine's failure, not only the process's.
WINBASEAPI LONG WINAPI RegFlushKey(HKEY key);

#define RegOpenKeyEx RegOpenKeyExA
#define RegCreateKeyEx RegCreateKeyExA
#define RegQueryValueEx RegQueryValueExA
#define RegSetValueEx RegSetValueExA
#define RegDeleteValue RegDeleteValueA
#define RegDeleteKey RegDeleteKeyA
#define RegEnumKeyEx RegEnumKeyExA
#define RegEnumValue RegEnumValueA
#define RegQueryInfoKey RegQueryInfoKeyA

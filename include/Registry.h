// Single registry values, addressed by one path text that begins with the root key's name.
//
//   CString value;
//   if (CRegistry::GetProfileString("HKEY_CURRENT_USER\\Software\\TOVEN\\TEST", "Profiling", value))
//       ...
//   CRegistry::WriteProfileInt("HKEY_CURRENT_USER\\Software\\TOVEN\\TEST", "Level", 3);
//
// Paths: the root is HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, HKEY_USERS or
// HKEY_CURRENT_CONFIG, in any case; a backslash at the end changes nothing; an empty part names the key
// reached so far; a root alone is no key. The second byte of a double-byte character separates nothing.
// Errors: every member answers 1 for success and 0 for any failure, shows nothing, and leaves its output
// untouched when it fails. Reading never creates keys, writing creates the whole path.
// Threads: any.
//
// windows.h renames three members as it renames the functions of those names: with the ANSI character set
// they are exported as GetProfileStringA, GetProfileIntA and WriteProfileStringA. WriteProfileInt keeps its
// name.
#pragma once

#include <afx.h>

class AFX_EXT_CLASS CRegistry
{
public:
    virtual ~CRegistry() = default;

    // The value's bytes up to the first zero byte. Its type does not count: a number's bytes come back raw.
    static int GetProfileString(const char* lpszPath, const char* lpszEntry, CString& strValue);

    // The value's first four bytes as they lie in memory; fewer are filled up with zeros, more are a failure.
    // Its type does not count.
    static int GetProfileInt(const char* lpszPath, const char* lpszEntry, int& nValue);

    // Writes a text; lpszValue null deletes the value, which fails when there was none (the key is made all
    // the same).
    static int WriteProfileString(const char* lpszPath, const char* lpszEntry, const char* lpszValue);

    // Writes a 32-bit number.
    static int WriteProfileInt(const char* lpszPath, const char* lpszEntry, int nValue);

protected:
    // The key of a full path, opened (bOpenOnly nonzero) or made where it is missing, for reading and
    // writing; null on failure. The caller closes it.
    static HKEY GetRegistryKey(const char* lpszPath, int bOpenOnly);
};

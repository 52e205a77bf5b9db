// Keys by their full names, as commands and .reg files write them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// A key's root and the path below it.
struct KeyName {
    HKEY root = nullptr;
    std::string subkey;
};

// Reads "HKEY_CURRENT_USER\Software", in any case, the root also as HKCR, HKCU, HKLM, HKU or HKCC.
// False when the root is none of these.
bool ParseKeyName(const std::string& text, KeyName& name);

// The long names of all roots.
std::vector<std::string> RootNames();

// The name with its root spelled out.
std::string FullName(const KeyName& name);

// An open key; closed at the end.
class RegKey
{
public:
    RegKey() = default;
    ~RegKey();
    RegKey(const RegKey&) = delete;
    RegKey& operator=(const RegKey&) = delete;

    LONG Open(const KeyName& name);
    LONG Create(const KeyName& name);
    HKEY Get() const { return m_key; }

private:
    HKEY m_key = nullptr;
};

struct NamedValue {
    std::string name;
    DWORD type = REG_NONE;
    std::string data;
};

// Everything below a key; what cannot be read is told by the result.
LONG ListSubkeys(HKEY key, std::vector<std::string>& names);
LONG ListValues(HKEY key, std::vector<NamedValue>& values);
LONG ReadValue(HKEY key, const std::string& name, NamedValue& value);

// Deletes a key with everything below it.
LONG DeleteTree(const KeyName& name);

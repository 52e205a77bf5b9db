// What the registry says about classes.
#pragma once

#include <objbase.h>

#include <string>

// Reads the default value of a key below HKEY_CLASSES_ROOT; false when there is none.
bool ReadClassesText(const std::string& subkey, std::string& text);

// "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}" in capitals.
std::string GuidText(REFGUID guid);

// Reads that form, in either case; false when `text` is anything else.
bool ParseGuid(const std::string& text, GUID& guid);

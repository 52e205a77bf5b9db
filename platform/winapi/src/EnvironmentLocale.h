// The locale that the user's environment asks for, whatever setlocale() did.
#pragma once

#include <string>

// The name for one category ("LC_CTYPE", "LC_MESSAGES"): LC_ALL, else the category's own variable, else LANG,
// else "C".
std::string EnvironmentLocale(const char* category);

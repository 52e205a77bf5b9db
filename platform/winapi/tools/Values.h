// Values as commands write and show them.
#pragma once

#include "KeyNames.h"

#include <string>
#include <vector>

// "sz", "dword" ..., or "0x12" for a type that has no name.
std::string TypeName(DWORD type);
bool ParseTypeName(const std::string& text, DWORD& type);

// The bytes of a value from its words: texts, decimal or 0x numbers, or hexadecimal digits. False when they
// do not fit the type.
bool ParseData(DWORD type, const std::vector<std::string>& words, std::string& data);

// Text as it is, several texts on lines of their own, numbers in decimal, anything else in hexadecimal
// digits.
std::string ShowData(const NamedValue& value);

// A text without its terminator.
std::string TextOf(const std::string& data);

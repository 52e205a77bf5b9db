// Registry keys as .reg text.
//
// Written: the form that begins with REGEDIT4, whose bytes are those of the active code page. Read: that form
// and the one that begins with "Windows Registry Editor Version 5.00", as UTF-16 or as bytes; its hexadecimal
// texts are UTF-16 and become texts of the active code page.
#pragma once

#include "KeyNames.h"

#include <iosfwd>
#include <string>
#include <vector>

// Writes the first lines.
void BeginExport(std::ostream& out);

// Writes a key and everything below it. A Win32 error code.
LONG ExportKey(const KeyName& key, std::ostream& out);

// One thing that a .reg text asks for.
struct RegChange {
    enum class Kind { MakeKey, DeleteKey, SetValue, DeleteValue };
    Kind kind;
    KeyName key;
    NamedValue value;
};

// Reads a whole text; false when a line is wrong, with the line's number (from 1) and what is wrong with it.
bool ParseRegFile(const std::string& content, std::vector<RegChange>& changes, int& line, std::string& error);

// Carries a change out. A Win32 error code; deleting what is not there is no error.
LONG Apply(const RegChange& change);

// The list of what the spreadsheet server supports, made from its member tables.
#pragma once

#include <string>

// Markdown: a table per object with names, identifiers, kinds and argument counts.
std::string MemberList();

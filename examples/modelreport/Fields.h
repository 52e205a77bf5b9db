// The free format of a deck's lines: fields between commas, numbers, names in any case.
#pragma once

#include <ZEK_lib.h>

// Cuts `line` at its commas into trimmed fields. A comma at the end adds no field; an empty line has none.
void SplitFields(const CString& line, CStringArray& fields);

// `text` in capitals and without any blank: how keywords, option names and set names are compared.
CString Folded(const CString& text);

// `text` trimmed, without a pair of double quotes round it.
CString Unquoted(const CString& text);

// Reads a whole decimal number of 31 bits with an optional sign. False, `value` untouched, for anything else.
bool ParseInteger(const CString& text, LONG& value);

// Reads a finite number as Fortran programs write it: 1.5, -.5E3, 1.D-3, 2.5-3. The empty text is 0.
// False, `value` untouched, for anything else.
bool ParseNumber(const CString& text, double& value);

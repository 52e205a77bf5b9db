// Numbers as a user types them.
#pragma once

#include <windows.h>

// Decimal, with blanks round it if the user likes. False, `value` untouched, for anything else and for what
// does not fit.
bool AfxParseWhole(LPCSTR text, LONGLONG& value);
bool AfxParseReal(LPCSTR text, double& value);

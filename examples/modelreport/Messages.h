// Texts of exceptions.
#pragma once

#include <ZEK_lib.h>

// The exception's text for the user, on one line; the exception is deleted.
CString MessageOf(CException* e);

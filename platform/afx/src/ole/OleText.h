// Texts between the ANSI code page and OLE. ASCII, the usual case, is converted without a system call.
#pragma once

#include <afxdisp.h>

// A BSTR with the text of `length` bytes; the caller frees it. Throws CMemoryException.
BSTR OleTextFromAnsi(LPCSTR text, int length);

// The same for a text that ends at its zero byte; a null pointer gives a null BSTR.
BSTR OleTextFromAnsi(LPCSTR text);

// The text of a BSTR, embedded zeros included. "" for null.
CString AnsiFromOleText(BSTR text);

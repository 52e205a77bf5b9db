// Paths as CFile keeps them.
#pragma once

#include <afxstr_.h>

// The full path of a file; the name itself when the system cannot tell.
CString AfxFullPath(LPCSTR fileName);

// What stands behind the last separator of a path. The second byte of a character is no separator.
CString AfxFileNameOf(LPCSTR path);

// The same without the last dot and what follows it.
CString AfxFileTitleOf(LPCSTR path);

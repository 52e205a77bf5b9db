// Texts whose addresses are on their way to a window.
#pragma once

#include <afx.h>

// Keeps the characters of `text` where they are, until 1,024 more texts have been kept, or 4 MB of them.
// Threads: any.
void KeepPostedText(const CString& text);

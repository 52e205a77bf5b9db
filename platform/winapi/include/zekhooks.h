// What a host or a test may hook into on a machine without windows.
#pragma once

#include "windef.h"

// Answers the button (IDOK ...) of a message box; `caption` is never null.
using ZEK_BOX_HOOK = int (*)(HWND owner, LPCSTR text, LPCSTR caption, UINT style);

// Sets the hook that answers message boxes (null: the built-in one) and answers the one before it.
// Threads: any; a box that is being answered goes on with the hook it found.
extern "C" __attribute__((visibility("default"))) ZEK_BOX_HOOK ZekSetBoxHook(ZEK_BOX_HOOK hook);

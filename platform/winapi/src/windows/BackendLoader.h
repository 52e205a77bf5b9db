// The toolkit's module, and the thread that it made the user-interface thread.
#pragma once

#include "Backend.h"

// 0 while the module is not loaded.
DWORD UiThread();

// Whether the environment names a display.
bool IsDisplayNamed();

// What the toolkit tells, turned into messages.
PeerEvents& TheEvents();

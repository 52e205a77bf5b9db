// The toolkit's module, and the thread that it made the user-interface thread.
#pragma once

#include "Backend.h"

// 0 while the module is not loaded.
DWORD UiThread();

// What the toolkit tells, turned into messages.
PeerEvents& TheEvents();

// Has message boxes shown on the user-interface thread, whichever thread asks.
#pragma once

#include <winuser.h>

#include <functional>

// Called on the user-interface thread before it makes its first window.
void PrepareBoxThread();

// Runs `work` on the user-interface thread, when that asks for messages, and waits for it. False when it
// could not be run: that thread never prepared itself, or has ended.
bool RunOnUiThread(const std::function<void()>& work);

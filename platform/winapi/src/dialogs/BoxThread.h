// Message boxes of threads that cannot make windows: the user-interface thread makes them and has their
// messages, whichever loop it runs; the thread that asked runs a loop of its own meanwhile, so that its
// timers and messages are served.
#pragma once

#include <winuser.h>

#include <functional>

// Called before a box is the first to need the toolkit: has the program's first thread load it, if that one
// asks for messages. It is the likelier to have windows later.
void ChooseUiThread();

// Runs `work` on the user-interface thread, when that asks for messages, and waits for it. False when it
// could not be run: that thread has no messages, or has ended.
bool RunOnUiThread(const std::function<void()>& work);

// Whether the message was a key for the box of another thread, and has been dealt with: no loop of this
// thread knows that box.
bool IsBoxKey(const MSG& message);

// Called on the user-interface thread when it has made a box for another one: that one is told when this
// thread ends.
void WatchForTheEnd();

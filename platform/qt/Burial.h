// Keeps a destroyed peer until the toolkit cannot be using its widget any more.
//
// A handler that a widget's own event has led to may destroy the window, and the toolkit goes on with the
// widget when the handler returns. So every call into the toolkit is counted while it lasts: an object that
// was made at a given depth of calls is deleted when the depth is down to that again.
// Threads: the user-interface thread.
#pragma once

#include <memory>

class WindowPeer;

// One call into the toolkit; its end deletes what may be deleted then.
class ToolkitCall
{
public:
    ToolkitCall();
    ~ToolkitCall();
    ToolkitCall(const ToolkitCall&) = delete;
    ToolkitCall& operator=(const ToolkitCall&) = delete;

    // How many calls were on the stack before the present one.
    static int DepthBefore();
};

// Takes a peer whose window is gone. Children come before their parents.
void Bury(std::unique_ptr<WindowPeer> peer);

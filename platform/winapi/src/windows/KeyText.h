// What keys type.
#pragma once

#include "Queue.h"

// In the ANSI code page. A key message that the keyboard did not make (a program posted it) types what the
// plain key does.
std::string TypedText(const MessageQueue& queue, const MSG& message);

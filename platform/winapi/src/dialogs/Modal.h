// Dialogs that keep their callers waiting.
#pragma once

#include "Create.h"

// What EndDialog was given; -1 when the dialog cannot be made. The owner's top-level window is disabled
// meanwhile.
INT_PTR RunDialog(const Template& shape, DialogOrder order);

// Dialogs that keep their callers waiting.
#pragma once

#include "Create.h"

// What EndDialog was given; -1 when the dialog cannot be made. The owner's top-level window is disabled
// meanwhile.
INT_PTR RunDialog(const Template& shape, DialogOrder order);
// Likewise from any thread: the procedure is called on the user-interface thread, the caller's own messages
// are dispatched meanwhile.
INT_PTR RunDialogAnywhere(const Template& shape, DialogOrder order);

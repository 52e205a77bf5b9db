// What the dialog manager keeps of a dialog beyond its window.
#pragma once

#include <winuser.h>

// A modal loop on its thread's stack; it outlives the dialog's window.
struct ModalRun {
    HWND owner = nullptr; // disabled by this run: to be enabled again
    bool ended = false;   // by EndDialog, or the window is gone
    INT_PTR result = 0;

    void EnableOwner();
};

struct DialogState {
    HFONT font = nullptr; // owned
    SIZE base = {};       // of the dialog units, in pixels
    UINT defaultId = 0;
    HWND focus = nullptr; // gets the keyboard when the dialog is activated
    ModalRun* run = nullptr;
    bool ended = false;
};

// Null for a window that the dialog manager did not make. Valid while the window lives, on its thread.
DialogState* StateOf(HWND dialog);
DialogState& MakeState(HWND dialog);
void DropState(HWND dialog);

// What the dialog manager keeps of a dialog beyond its window.
#pragma once

#include <winbase.h>
#include <winuser.h>

#include <atomic>

// A modal loop on the stack of the thread that waits, which need not be the dialog's; it outlives
// the dialog's state.
struct ModalRun {
    const DWORD waiter = GetCurrentThreadId();
    std::atomic<HWND> owner = nullptr; // disabled by this run: to be enabled again
    std::atomic<bool> ended = false;   // by EndDialog, or the window is gone
    std::atomic<INT_PTR> result = 0;

    void EnableOwner();
    // Lets the loop go on; the run may be gone afterwards.
    void End();
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
// Ends the modal loops that other threads run for dialogs of this one, with -1.
void AbandonForeignRuns();

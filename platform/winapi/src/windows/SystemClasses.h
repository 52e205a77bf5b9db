// The classes that are there from the start.
#pragma once

#include <windows.h>

#include <span>

struct SystemClass {
    LPCSTR name;
    WNDPROC procedure;
    UINT style;
    int extra; // bytes of each window
    bool isControl;
    bool isDialog;
};
std::span<const SystemClass> SystemClasses();

// Asks the toolkit's control first, then does what every window does.
LRESULT CALLBACK ControlProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// The area that holds the children of a frame of several documents.
LRESULT CALLBACK MdiClientProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

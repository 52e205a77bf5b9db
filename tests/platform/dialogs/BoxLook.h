// What a message box looks like while it is shown.
#pragma once

#include <windows.h>

#include <string>

struct BoxLook {
    RECT box;    // on the screen
    RECT client; // this and the others in the box's coordinates
    RECT label;
    RECT button; // OK
};

// Shows a box with an icon and an OK button, and answers it.
BoxLook LookOf(const std::string& text, const std::string& caption = "caption");

LONG Height(const RECT& rect);
LONG Width(const RECT& rect);

// Whether the box lies on the screen, and all that is in it in it, the button below the text.
void ExpectAllIsSeen(const BoxLook& look);

std::string Repeated(const std::string& part, int count);

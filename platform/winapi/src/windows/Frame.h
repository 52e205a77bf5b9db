// The arithmetic of frames: how much a window's style takes from its client area.
#pragma once

#include "Window.h"

// Grows a client rectangle to the window's.
void AddFrame(RECT& rect, DWORD style, DWORD exStyle);

// With the windows' lock held:
// The client area in the coordinates of the window's own `rect`; empty when minimized.
RECT ClientArea(const Window& window);
// Where the client area's and the window's upper left corners lie on the screen.
POINT ClientOrigin(const Window& window);
POINT WindowOrigin(const Window& window);
RECT ScreenRect(const Window& window);
// What the window's peer is to cover.
RECT PeerArea(const Window& window);

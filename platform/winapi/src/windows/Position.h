// Moving, sizing, ordering and showing windows.
#pragma once

#include "Window.h"

// SetWindowPos on the window's own thread. With a `peerCommand` (SW_...) the peer does that instead of what
// `place` says.
bool PlaceWindow(const WindowRef& window, WINDOWPOS place, int peerCommand = 0);
// Sends WM_SIZE and WM_MOVE as they stand.
void TellSizeAndPlace(const WindowRef& window);
// Takes over what the user or the window manager did with a top-level window.
void TakeUserRect(const WindowRef& window, const RECT& client);
// GWL_STYLE or GWL_EXSTYLE; the old bits.
DWORD ChangeStyle(const WindowRef& window, int index, DWORD bits);
// Hands the peer its rectangle.
void PlacePeer(const WindowRef& window);
// Shows or hides the peer as the window's styles say.
void ShowPeer(const WindowRef& window, int command);
bool IsParentVisible(const Window& window);

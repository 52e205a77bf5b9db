// The toolkit's keys and the virtual-key codes of Windows.
#pragma once

#include <windows.h>

class QKeyEvent;

// The code of the key that an event is about; 0 for one that has none. A letter or digit is itself under
// every layout that types Latin letters, and elsewhere what stands there on a US keyboard.
WPARAM VirtualKeyOf(const QKeyEvent& event);
int ToolkitKeyOf(WPARAM key); // 0: none

UINT ScanCodeOf(const QKeyEvent& event);
// One of those that came with the enhanced keyboard, apart from the number pad.
bool IsExtendedKey(const QKeyEvent& event, WPARAM key);

// The window class of plain frames and views.
#pragma once

#include <windows.h>

LPCSTR AfxPlainWindowClass();

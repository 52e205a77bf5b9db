// A window's own text.
#pragma once

#include "Window.h"

// The answers of WM_SETTEXT, WM_GETTEXT and WM_GETTEXTLENGTH.
LRESULT StoreText(const WindowRef& window, LPCSTR text);
LRESULT CopyText(const WindowRef& window, LPSTR buffer, size_t size);
LRESULT TextLength(const WindowRef& window);

// The used subset of Win32, under the names of its own headers.
#pragma once

// A resource compiler takes the numbers alone.
#ifdef RC_INVOKED
#include "winresrc.h"
#else
#include "windef.h"
#include "crtnames_.h"
#include "winerror.h"
#include "winbase.h"
#include "wingdi.h"
#include "winnls.h"
#include "winreg.h"
#include "winuser.h"
#endif

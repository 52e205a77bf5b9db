// The used subset of Win32, under the names of its own headers.
#pragma once

#include "windef.h"
#include "crtnames_.h"
#include "winerror.h"
#include "winbase.h"
#include "winnls.h"
#include "winreg.h"
#include "winuser.h"

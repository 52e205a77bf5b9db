// The framework's base classes: strings, files, exceptions, time, collections' root.
#pragma once

#include "afxver_.h"

#include <windows.h>

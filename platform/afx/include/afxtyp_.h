// Points, sizes and rectangles.
#pragma once

#include "afxver_.h"

#include <windows.h>

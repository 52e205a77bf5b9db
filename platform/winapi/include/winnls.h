// Code pages, locales and comparisons.
#pragma once

#include "windef.h"

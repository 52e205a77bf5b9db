// The registry.
#pragma once

#include "windef.h"

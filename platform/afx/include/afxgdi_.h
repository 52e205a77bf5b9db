// Device contexts and fonts.
#pragma once

#include "afxobj_.h"
#include "afxtyp_.h"

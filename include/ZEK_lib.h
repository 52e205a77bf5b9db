// Everything the library offers to a host, but for MemoryLeakTester.h, which a host includes on purpose.
#pragma once

#include <afx.h>

#include "MathFunc.h"
#include "Registry.h"
#include "MSExcel.h"
#include "MsgDll.h"
#include "ProductInfo.h"
#include "TextFile.h"

// Everything the library offers to a host, but for MemoryLeakTester.h, which a host includes on purpose.
#pragma once

#include <afx.h>

#include "ArrayUtil.h"
#include "AutoIDMaker.h"
#include "CompFunc.h"
#include "ErrorState.h"
#include "FileCtrl.h"
#include "GlobalFunc.h"
#include "KeyClass.h"
#include "LocaleLib.h"
#include "MSExcel.h"
#include "MathFunc.h"
#include "MsgDll.h"
#include "NumericOptimizer.h"
#include "Product.h"
#include "ProductInfo.h"
#include "QSort.h"
#include "RandomColor.h"
#include "Registry.h"
#include "SpecialChar.h"
#include "StringTokenizer.h"
#include "TestEnvMgr.h"
#include "TextFile.h"
#include "TovenLib.h"

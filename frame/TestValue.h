// Test switches, for the library itself.
#pragma once

#include <afx.h>

// The switch as the registry holds it now; empty without it. What CProduct and CTestEnvMgr keep of their
// first answers is not touched: until a host asks there is no first answer.
CString TestValue(const char* name);

// Who the running product is, and the values with which its testers change its ways.
//
//   if (CProduct::GetTestEnvValue("Profiling") == "yes")
//       ...
//
// Test values lie in the registry under HKEY_CURRENT_USER\Software\TOVEN\TEST. Most callers want them once
// per process: see TestEnvMgr.h.
//
// Errors: what is missing is empty or 0. Threads: the user-interface thread.
#pragma once

#include <afx.h>

class AFX_EXT_CLASS CProduct
{
public:
    // The number that the host's IProductInfo tells; 0 before there is one.
    static int GetProductID();

    // A test value's text as the registry holds it now; "" when it has none. Only "Hide Version", spelled
    // exactly so, is read once per process, at the first call whatever that asks for.
    static CString GetTestEnvValue(const char* lpszName);

    static int m_bInit; // 1 since the library's load

protected:
    static int Initialize();
};

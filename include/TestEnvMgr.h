// Test values and switches of CProduct, each read once per process.
//
//   if (CTestEnvMgr::IsTestEnvST("Profiling", "yes"))
//       ...
//
// What the registry holds when a name is first asked for counts until the process ends, an absent value
// included. Texts and switches are kept apart: each has its own first time.
//
// Names are compared by case here, but the registry finds a value in any case.
// Threads: the user-interface thread.
#pragma once

#include <afxtempl.h>

class AFX_EXT_CLASS CTestEnvMgr
{
public:
    CTestEnvMgr();
    // A copy knows what its source has read so far.
    CTestEnvMgr(const CTestEnvMgr& source);
    CTestEnvMgr& operator=(const CTestEnvMgr& source);
    virtual ~CTestEnvMgr();

    // GetTestEnv and IsTestEnv of the manager that the process shares. It is made on first use and lives to
    // the end of the process.
    static CString GetTestEnvST(const char* lpszName);
    static int IsTestEnvST(const char* lpszName, const char* lpszValue);

protected:
    // The value's text, "" when it has none.
    CString GetTestEnv(const char* lpszName);
    // 1 if the value's text is lpszValue in any case, else 0. The first answer for a name stands, whatever
    // lpszValue is asked for later: a switch is read once.
    int IsTestEnv(const char* lpszName, const char* lpszValue);

private:
    static CTestEnvMgr& Shared();

    CMap<CString, LPCSTR, CString, LPCSTR> m_values;
    CMap<CString, LPCSTR, int, int> m_switches;
};

#include <TestEnvMgr.h>

#include <Product.h>

namespace {

template <class VALUE, class ARG>
void Copy(const CMap<CString, LPCSTR, VALUE, ARG>& from, CMap<CString, LPCSTR, VALUE, ARG>& to)
{
    to.RemoveAll();
    for (POSITION place = from.GetStartPosition(); place;) {
        CString name;
        VALUE value;
        from.GetNextAssoc(place, name, value);
        to.SetAt(name, value);
    }
}

} // namespace

CTestEnvMgr::CTestEnvMgr() = default;

CTestEnvMgr::CTestEnvMgr(const CTestEnvMgr& source)
{
    *this = source;
}

CTestEnvMgr& CTestEnvMgr::operator=(const CTestEnvMgr& source)
{
    if (this != &source) {
        Copy(source.m_values, m_values);
        Copy(source.m_switches, m_switches);
    }
    return *this;
}

CTestEnvMgr::~CTestEnvMgr() = default;

// Never destroyed: reports that are written last of all still ask.
CTestEnvMgr& CTestEnvMgr::Shared()
{
    static CTestEnvMgr* const manager = new CTestEnvMgr;
    return *manager;
}

CString CTestEnvMgr::GetTestEnvST(const char* lpszName)
{
    return Shared().GetTestEnv(lpszName);
}

int CTestEnvMgr::IsTestEnvST(const char* lpszName, const char* lpszValue)
{
    return Shared().IsTestEnv(lpszName, lpszValue);
}

CString CTestEnvMgr::GetTestEnv(const char* lpszName)
{
    const CString name(lpszName);
    CString value;
    if (!m_values.Lookup(name, value)) {
        value = CProduct::GetTestEnvValue(name);
        m_values.SetAt(name, value);
    }
    return value;
}

int CTestEnvMgr::IsTestEnv(const char* lpszName, const char* lpszValue)
{
    const CString name(lpszName);
    int isSet = 0;
    if (!m_switches.Lookup(name, isSet)) {
        isSet = CProduct::GetTestEnvValue(name).CompareNoCase(CString(lpszValue)) == 0 ? 1 : 0;
        m_switches.SetAt(name, isSet);
    }
    return isSet;
}

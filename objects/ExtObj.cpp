#include "ExtObj.h"

#include "NamedTable.h"

namespace {

constexpr UINT kBuckets = 11;

} // namespace

CExtObjIntf::~CExtObjIntf() = default;
CExtObjImpl::~CExtObjImpl() = default;
CExtObjState::~CExtObjState() = default;

CExtObj::CExtObj()
{
    m_intfs.InitHashTable(kBuckets, FALSE);
    m_impls.InitHashTable(kBuckets, FALSE);
    m_states.InitHashTable(kBuckets, FALSE);
}

CExtObj::~CExtObj()
{
    DeleteAll(m_intfs);
    DeleteAll(m_impls);
    DeleteAll(m_states);
}

int CExtObj::AddIntf(const char* name, CExtObjIntf* p)
{
    if (!p || !AddNamed(m_intfs, name, p))
        return 0;
    SetIntfExtObj(p);
    return 1;
}

int CExtObj::AddImpl(const char* name, CExtObjImpl* p)
{
    if (!p || !AddNamed(m_impls, name, p))
        return 0;
    SetImplExtObj(p);
    return 1;
}

int CExtObj::AddState(const char* name, CExtObjState* p)
{
    if (!p || !AddNamed(m_states, name, p))
        return 0;
    SetStateExtObj(p);
    return 1;
}

CExtObjIntf* CExtObj::GetIntf(const char* name)
{
    return FindNamed(m_intfs, name);
}

CExtObjImpl* CExtObj::GetImpl(const char* name)
{
    return FindNamed(m_impls, name);
}

CExtObjState* CExtObj::GetState(const char* name)
{
    return FindNamed(m_states, name);
}

void CExtObj::SetIntfExtObj(CExtObjIntf* p)
{
    p->m_pExtObj = this;
}

void CExtObj::SetImplExtObj(CExtObjImpl* p)
{
    p->m_pExtObj = this;
}

void CExtObj::SetStateExtObj(CExtObjState* p)
{
    p->m_pExtObj = this;
}

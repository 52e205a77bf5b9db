#include "ServiceHeadOffice.h"

#include "NamedTable.h"

namespace {

constexpr UINT kBuckets = 31;

} // namespace

CServiceAgency::CServiceAgency() = default;
CServiceAgency::CServiceAgency(const CServiceAgency&) = default;
CServiceAgency& CServiceAgency::operator=(const CServiceAgency&) = default;
CServiceAgency::~CServiceAgency() = default;

CServiceHeadOffice::CServiceHeadOffice()
{
    m_agencies.InitHashTable(kBuckets, FALSE);
}

CServiceHeadOffice::~CServiceHeadOffice()
{
    DeleteAll(m_agencies);
}

// Load.cpp calls it first, so what hosts and modules make is destroyed before the office.
CServiceHeadOffice* CServiceHeadOffice::Instance()
{
    static CServiceHeadOffice office;
    return &office;
}

int CServiceHeadOffice::RegAgency(const char* name, CServiceAgency* agency)
{
    return AddNamed(m_agencies, name, agency);
}

int CServiceHeadOffice::ReqService(const char* name, int nCode, void* pData)
{
    CServiceAgency* agency = FindNamed(m_agencies, name);
    return agency ? agency->DoService(nCode, pData) : -1;
}

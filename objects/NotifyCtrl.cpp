#include "NotifyCtrl.h"

#include "Broadcast.h"

CDBUpdateConnector::CDBUpdateConnector()
{
    Connect();
}

CDBUpdateConnector::CDBUpdateConnector(const CDBUpdateConnector& other) = default;

CDBUpdateConnector& CDBUpdateConnector::operator=(const CDBUpdateConnector& other)
{
    m_pConnected = other.m_pConnected;
    SetPriority(other.m_nPriority);
    return *this;
}

// The list must not keep an object whose marker was overwritten by that of another.
CDBUpdateConnector::~CDBUpdateConnector()
{
    const bool isMarked = m_pConnected == this;
    Disconnect();
    if (!isMarked)
        CNotifyCtrl::Del(this);
    ConnectorList::Instance().Forget(this);
}

void CDBUpdateConnector::OnUpdate(CView*, LPARAM, CObject*)
{
}

void CDBUpdateConnector::Connect()
{
    if (m_pConnected)
        return;
    CNotifyCtrl::Add(this);
    m_pConnected = this;
}

// Where the marker points may be gone: it is looked for in the list, and not looked at.
void CDBUpdateConnector::Disconnect()
{
    if (!m_pConnected)
        return;
    CNotifyCtrl::Del(m_pConnected);
    m_pConnected = nullptr;
}

void CDBUpdateConnector::SetPriority(int nPriority)
{
    if (nPriority != m_nPriority)
        ConnectorList::Instance().Changed();
    m_nPriority = nPriority;
}

CNotifyCtrl::~CNotifyCtrl() = default;

void CNotifyCtrl::Add(CDBUpdateConnector* pConnector)
{
    if (pConnector)
        ConnectorList::Instance().Add(pConnector);
}

void CNotifyCtrl::Del(CDBUpdateConnector* pConnector)
{
    ConnectorList::Instance().Remove(pConnector);
}

int CNotifyCtrl::Find(CDBUpdateConnector* pConnector)
{
    return ConnectorList::Instance().Find(pConnector);
}

void CNotifyCtrl::NotifyUpdate(CView* pSender, LPARAM lHint, CObject* pHint)
{
    ConnectorList& list = ConnectorList::Instance();
    if (list.Count() > 0)
        Delivery(list).Run(pSender, lHint, pHint);
}

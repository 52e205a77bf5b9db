#include "Broadcast.h"

#include <CompFunc.h>

#include <afxsort_.h>

#include <algorithm>
#include <utility>

ConnectorList& ConnectorList::Instance()
{
    static auto* const list = new ConnectorList;
    return *list;
}

int ConnectorList::Find(const CDBUpdateConnector* connector) const
{
    CDBUpdateConnector* const* const first = m_connectors.GetData();
    CDBUpdateConnector* const* const last = first + Count();
    const auto found = std::find(first, last, connector);
    return found == last ? -1 : static_cast<int>(found - first);
}

void ConnectorList::Add(CDBUpdateConnector* connector)
{
    if (Find(connector) >= 0)
        return;
    m_connectors.Add(connector);
    Changed();
}

void ConnectorList::Remove(CDBUpdateConnector* connector)
{
    const int index = Find(connector);
    if (index < 0)
        return;
    for (Delivery* delivery = m_running; delivery; delivery = delivery->Outer())
        delivery->Removed(connector);
    m_connectors.RemoveAt(index);
    Changed();
}

void ConnectorList::Forget(const CDBUpdateConnector* connector)
{
    for (Delivery* delivery = m_running; delivery; delivery = delivery->Outer())
        delivery->Forget(connector);
}

std::vector<CDBUpdateConnector*> ConnectorList::Sorted() const
{
    std::vector<T_POS_INT_PAIR> pairs;
    pairs.reserve(static_cast<std::size_t>(Count()));
    for (int i = 0; i < Count(); ++i)
        pairs.push_back({i, m_connectors[i]->GetPriority()});
    AfxQSort(pairs.data(), pairs.size(), sizeof(T_POS_INT_PAIR), &CCompFunc::PosIntPairA);
    std::vector<CDBUpdateConnector*> order;
    order.reserve(pairs.size());
    std::for_each(pairs.rbegin(), pairs.rend(),
                  [this, &order](const T_POS_INT_PAIR& pair) { order.push_back(m_connectors[pair.index]); });
    return order;
}

std::vector<CDBUpdateConnector*> ConnectorList::BorrowOrder()
{
    if (std::exchange(m_hasOrder, false))
        return std::move(m_order);
    return m_running && m_running->m_version == m_version ? m_running->m_slots : Sorted();
}

void ConnectorList::ReturnOrder(std::vector<CDBUpdateConnector*>& order, unsigned version)
{
    if (version != m_version)
        return;
    m_order = std::move(order);
    m_hasOrder = true;
}

Delivery::Delivery(ConnectorList& list)
    : m_list(list), m_outer(list.m_running), m_slots(list.BorrowOrder()), m_version(list.m_version),
      m_count(list.Count())
{
    m_list.m_running = this;
}

Delivery::~Delivery()
{
    m_list.m_running = m_outer;
    m_list.ReturnOrder(m_slots, m_version);
}

void Delivery::Run(CView* sender, LPARAM hint, CObject* hintObject)
{
    const std::size_t count = m_slots.size();
    for (std::size_t next = 0; next < count;) {
        CDBUpdateConnector* connector = m_slots[next++];
        m_next = next;
        if (connector)
            connector->OnUpdate(sender, hint, hintObject);
        if (m_list.Count() != m_count)
            CheckLater();
    }
}

void Delivery::PassOver(const CDBUpdateConnector* connector)
{
    const auto first = m_slots.begin() + static_cast<std::ptrdiff_t>(m_next);
    const auto found = std::find(first, m_slots.end(), connector);
    if (found != m_slots.end())
        *found = nullptr;
}

// Nobody but those removed since the last check can be missing.
void Delivery::CheckLater()
{
    m_count = m_list.Count();
    for (const CDBUpdateConnector* connector : m_removed) {
        if (m_list.Find(connector) < 0)
            PassOver(connector);
    }
    m_removed.clear();
}

void Delivery::Forget(const CDBUpdateConnector* connector)
{
    PassOver(connector);
    m_removed.erase(connector);
}

#include "Broadcast.h"

#include <CompFunc.h>

#include <afxsort_.h>

#include <algorithm>

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
    m_ordered = false;
}

void ConnectorList::Remove(CDBUpdateConnector* connector)
{
    const int index = Find(connector);
    if (index < 0)
        return;
    for (Delivery* delivery = m_running; delivery; delivery = delivery->Outer())
        delivery->Removed(connector);
    m_connectors.RemoveAt(index);
    m_ordered = false;
}

void ConnectorList::Forget(const CDBUpdateConnector* connector)
{
    for (Delivery* delivery = m_running; delivery; delivery = delivery->Outer())
        delivery->Forget(connector);
}

const std::vector<CDBUpdateConnector*>& ConnectorList::Order()
{
    if (m_ordered)
        return m_order;
    std::vector<T_POS_INT_PAIR> pairs;
    pairs.reserve(static_cast<std::size_t>(Count()));
    for (int i = 0; i < Count(); ++i)
        pairs.push_back({i, m_connectors[i]->GetPriority()});
    AfxQSort(pairs.data(), pairs.size(), sizeof(T_POS_INT_PAIR), &CCompFunc::PosIntPairA);
    m_order.clear();
    std::for_each(pairs.rbegin(), pairs.rend(),
                  [this](const T_POS_INT_PAIR& pair) { m_order.push_back(m_connectors[pair.index]); });
    m_ordered = true;
    return m_order;
}

Delivery::Delivery(ConnectorList& list)
    : m_list(list), m_outer(list.m_running), m_slots(list.Order()), m_count(list.Count())
{
    m_list.m_running = this;
}

void Delivery::Run(CView* sender, LPARAM hint, CObject* hintObject)
{
    while (m_next < m_slots.size()) {
        if (CDBUpdateConnector* connector = m_slots[m_next++])
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

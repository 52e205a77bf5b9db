// The process's list of connectors, the order they are called in, and the broadcasts that are running.
#pragma once

#include <NotifyCtrl.h>

#include <afxtempl.h>

#include <cstddef>
#include <unordered_set>
#include <vector>

class Delivery;

class ConnectorList
{
public:
    // Never destroyed: agencies and hosts' static objects may hold connectors to their end.
    static ConnectorList& Instance();

    int Count() const { return m_connectors.GetSize(); }
    int Find(const CDBUpdateConnector* connector) const;
    void Add(CDBUpdateConnector* connector);
    void Remove(CDBUpdateConnector* connector);
    // The connector ends: no running broadcast calls it any more.
    void Forget(const CDBUpdateConnector* connector);
    void PriorityChanged() { m_ordered = false; }

    // In the order of calls, as priorities are now. Valid until the list or a priority changes.
    const std::vector<CDBUpdateConnector*>& Order();

private:
    friend class Delivery;
    ConnectorList() = default;

    CArray<CDBUpdateConnector*, CDBUpdateConnector*> m_connectors; // as they came
    std::vector<CDBUpdateConnector*> m_order;
    bool m_ordered = false;
    Delivery* m_running = nullptr; // the innermost
};

// One broadcast while it runs.
class Delivery
{
public:
    explicit Delivery(ConnectorList& list);
    ~Delivery() { m_list.m_running = m_outer; }
    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;

    void Run(CView* sender, LPARAM hint, CObject* hintObject);

    void Removed(const CDBUpdateConnector* connector) { m_removed.insert(connector); }
    void Forget(const CDBUpdateConnector* connector);
    Delivery* Outer() const { return m_outer; }

private:
    void PassOver(const CDBUpdateConnector* connector);
    void CheckLater();

    ConnectorList& m_list;
    Delivery* m_outer;
    std::vector<CDBUpdateConnector*> m_slots; // null: passed over
    std::size_t m_next = 0;
    int m_count;                                             // of connectors, when it was looked at last
    std::unordered_set<const CDBUpdateConnector*> m_removed; // since the last check
};

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
    // The order of calls has changed.
    void Changed()
    {
        ++m_version;
        m_hasOrder = false;
    }

private:
    friend class Delivery;
    ConnectorList() = default;

    std::vector<CDBUpdateConnector*> Sorted() const;
    // The order of calls, lent for a broadcast: most find it as the last one left it.
    std::vector<CDBUpdateConnector*> BorrowOrder();
    void ReturnOrder(std::vector<CDBUpdateConnector*>& order, unsigned version);

    CArray<CDBUpdateConnector*, CDBUpdateConnector*> m_connectors; // as they came
    unsigned m_version = 0;                                        // of the order of calls
    std::vector<CDBUpdateConnector*> m_order;
    bool m_hasOrder = false;       // whether m_order is that of this version
    Delivery* m_running = nullptr; // the innermost
};

// One broadcast while it runs.
class Delivery
{
public:
    explicit Delivery(ConnectorList& list);
    ~Delivery();
    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;

    void Run(CView* sender, LPARAM hint, CObject* hintObject);

    void Removed(const CDBUpdateConnector* connector) { m_removed.insert(connector); }
    void Forget(const CDBUpdateConnector* connector);
    Delivery* Outer() const { return m_outer; }

private:
    friend class ConnectorList;
    void PassOver(const CDBUpdateConnector* connector);
    void CheckLater();

    ConnectorList& m_list;
    Delivery* m_outer;
    std::vector<CDBUpdateConnector*> m_slots; // null: passed over, which needs a change
    unsigned m_version;                       // of the order when it was lent
    std::size_t m_next = 0;
    int m_count;                                             // of connectors, when it was looked at last
    std::unordered_set<const CDBUpdateConnector*> m_removed; // since the last check
};

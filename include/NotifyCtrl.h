// Changes of the data base, told to views and whoever else shows them, the most urgent first.
//
//   class CModelView : public CView, public CDBUpdateConnector
//   {
//   public:
//       void OnUpdate(CView* pSender, LPARAM lHint, CObject* pHint) override { ... }
//   };
//   CNotifyCtrl::NotifyUpdate(this, kNodesMoved, nullptr);          // where the host changes its data
//
// A connector listens from its construction to its end, unless its owner disconnects it. The library itself
// tells nothing: the host decides where its data change.
//
// Errors:  CMemoryException and std::bad_alloc when a list cannot grow.
// Threads: all connectors and broadcasts of a process belong to one thread; nothing is locked. What a handler
// throws leaves NotifyUpdate, and the connectors behind it are not called.
#pragma once

#include <afxver_.h>
#include <windows.h>

class CObject;
class CView;

class AFX_EXT_CLASS CDBUpdateConnector
{
public:
    CDBUpdateConnector(); // connected, with priority 0
    // Connectors are not meant to be copied. A copy has the marker of the original: it is not listed itself,
    // Connect does nothing while it has the marker, and its Disconnect or its end takes out the original,
    // which still believes it is connected.
    CDBUpdateConnector(const CDBUpdateConnector& other);
    CDBUpdateConnector& operator=(const CDBUpdateConnector& other);
    // Disconnects. It is not called any more, in no broadcast that is running either.
    virtual ~CDBUpdateConnector();

    // The sender, the hint and its object are those of NotifyUpdate. A handler may connect, disconnect, make
    // and delete connectors, itself too, set priorities and broadcast in its turn. By default it does
    // nothing.
    virtual void OnUpdate(CView* pSender, LPARAM lHint, CObject* pHint);

    void Connect(); // goes to the end of the list; nothing when it is connected
    void Disconnect();

    // Connectors with greater priorities are called first; from the next broadcast on. Priorities are
    // compared by their wrapped difference: those 2^31 or more apart come in the wrong order.
    void SetPriority(int nPriority);
    int GetPriority() const { return m_nPriority; }

private:
    CDBUpdateConnector* m_pConnected = nullptr; // this object while it is connected
    int m_nPriority = 0;
};

class AFX_EXT_CLASS CNotifyCtrl
{
public:
    CNotifyCtrl() = default;
    CNotifyCtrl(const CNotifyCtrl&) = default;
    CNotifyCtrl& operator=(const CNotifyCtrl&) = default;
    virtual ~CNotifyCtrl();

    // The list, in the order in which connectors came. Connectors add and remove themselves.
    static void Add(CDBUpdateConnector* pConnector); // at the end; nothing when listed, or null
    static void Del(CDBUpdateConnector* pConnector); // nothing when not listed
    static int Find(CDBUpdateConnector* pConnector); // counted from 0; -1 when not listed

    // Calls OnUpdate of every connector that is listed now, in descending priority; in no particular order
    // where priorities are equal. After each call in which the number of connectors has changed, those that
    // are not listed any more are passed over. One that is disconnected in the same call as another is
    // connected leaves the number as it was, so it is still called, unless it was deleted or the number
    // changes in a later call.
    static void NotifyUpdate(CView* pSender, LPARAM lHint, CObject* pHint);
};

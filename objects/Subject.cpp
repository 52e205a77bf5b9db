#include "Subject.h"

#include <algorithm>

namespace {

constexpr int kSubjectEnds = -1;

// A Notify that is running on this thread: how far it is, and whether its subject's list has changed since it
// looked last.
class Notification
{
public:
    Notification(const DP_CSubject* subject, int count) : m_subject(subject), m_end(count), m_outer(t_running)
    {
        t_running = this;
    }
    ~Notification() { t_running = m_outer; }
    Notification(const Notification&) = delete;
    Notification& operator=(const Notification&) = delete;

    bool HasNext()
    {
        m_changed = false;
        return m_next < m_end;
    }
    int Next() const { return m_next; }
    int End() const { return m_end; }
    void Advance(int next) { m_next = next; }
    bool IsChanged() const { return m_changed; }

    static void Attached(const DP_CSubject* subject)
    {
        ForEachOf(subject, [](Notification& running) { running.m_changed = true; });
    }
    static void Detached(const DP_CSubject* subject, int index)
    {
        ForEachOf(subject, [index](Notification& running) {
            running.m_changed = true;
            running.m_next -= index < running.m_next;
            running.m_end -= index < running.m_end;
        });
    }
    static void Ended(const DP_CSubject* subject)
    {
        ForEachOf(subject, [](Notification& running) {
            running.m_changed = true;
            running.m_end = 0;
        });
    }

private:
    template <class Change>
    static void ForEachOf(const DP_CSubject* subject, Change change)
    {
        for (Notification* running = t_running; running; running = running->m_outer) {
            if (running->m_subject == subject)
                change(*running);
        }
    }

    static thread_local constinit Notification* t_running;

    const DP_CSubject* m_subject;
    int m_next = 0;
    int m_end;
    bool m_changed = false;
    Notification* m_outer;
};

thread_local constinit Notification* Notification::t_running = nullptr;

// Counted from 1; 0 when it is not there.
template <class T>
int PlaceOf(const CArray<T*, T*>& list, const T* wanted)
{
    T* const* const first = list.GetData();
    T* const* const last = first + list.GetSize();
    const auto found = std::find(first, last, wanted);
    return found == last ? 0 : static_cast<int>(found - first) + 1;
}

} // namespace

DP_CSubject::DP_CSubject() = default;

DP_CSubject::~DP_CSubject()
{
    Notify(kSubjectEnds, nullptr);
    Notification::Ended(this);
}

int DP_CSubject::Attach(DP_CObserver* pObserver)
{
    if (!pObserver || Find(pObserver))
        return 0;
    m_observers.Add(pObserver);
    Notification::Attached(this);
    return 1;
}

int DP_CSubject::Detach(DP_CObserver* pObserver)
{
    const int place = Find(pObserver);
    if (place == 0)
        return 0;
    m_observers.RemoveAt(place - 1);
    Notification::Detached(this, place - 1);
    return 1;
}

// What the list is like is looked up again only when somebody has changed it: the loop is as fast as one over
// a plain array. Behind a change nothing of this object is touched before HasNext says that it is still
// there.
void DP_CSubject::Notify(int nCode, void* pData)
{
    Notification running(this, m_observers.GetSize());
    while (running.HasNext()) {
        DP_CObserver* const* const observers = m_observers.GetData();
        const int end = running.End();
        for (int next = running.Next(); next < end && !running.IsChanged();) {
            DP_CObserver* observer = observers[next++];
            running.Advance(next);
            observer->Update(this, nCode, pData);
        }
    }
}

int DP_CSubject::Find(DP_CObserver* pObserver)
{
    return PlaceOf(m_observers, pObserver);
}

DP_CObserver::DP_CObserver() = default;

DP_CObserver::~DP_CObserver()
{
    for (int i = 0; i < m_subjects.GetSize(); ++i)
        m_subjects[i]->Detach(this);
}

int DP_CObserver::Observe(DP_CSubject* pSubject)
{
    if (!pSubject || Find(pSubject))
        return 0;
    m_subjects.Add(pSubject); // first: it undoes more easily
    try {
        pSubject->Attach(this);
    } catch (...) {
        RemoveSubject(pSubject);
        throw;
    }
    return 1;
}

int DP_CObserver::StopObserving(DP_CSubject* pSubject)
{
    return RemoveSubject(pSubject) ? pSubject->Detach(this) : 0;
}

int DP_CObserver::RemoveSubject(DP_CSubject* pSubject)
{
    const int place = Find(pSubject);
    if (place == 0)
        return 0;
    m_subjects.RemoveAt(place - 1);
    return 1;
}

int DP_CObserver::Find(DP_CSubject* pSubject)
{
    return PlaceOf(m_subjects, pSubject);
}

CObserver::CObserver() = default;
CObserver::~CObserver() = default;

void CObserver::SetCallback(void (*pfnCallback)(void*, DP_CSubject*, int, void*), void* pUser)
{
    m_pfnCallback = pfnCallback;
    m_pUser = pUser;
}

void CObserver::Update(DP_CSubject* pSubject, int nCode, void* pData)
{
    if (nCode == kSubjectEnds)
        RemoveSubject(pSubject);
    else if (m_pfnCallback)
        m_pfnCallback(m_pUser, pSubject, nCode, pData);
}

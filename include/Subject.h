// Subjects and those who observe them.
//
//   void OnModelEvent(void* user, DP_CSubject* subject, int code, void* data) { ... }
//
//   CObserver observer;
//   observer.SetCallback(&OnModelEvent, this);
//   observer.Observe(&model);                       // model is a DP_CSubject
//   model.Notify(kNodesMoved, &nodes);              // calls OnModelEvent
//
// Links are made and undone by the observer, with Observe and StopObserving, which keep both sides: then
// either may be destroyed first. Attach and Detach change the subject's side alone, RemoveSubject the
// observer's; who uses them by themselves undoes them before either side ends. Neither side owns the other.
//
// Errors:  CMemoryException when a list cannot grow.
// Threads: a subject and its observers belong to one thread at a time; nothing is locked.
#pragma once

#include <afxtempl.h>

class DP_CObserver;

class AFX_EXT_CLASS DP_CSubject
{
public:
    DP_CSubject();
    DP_CSubject(const DP_CSubject&) = delete;
    DP_CSubject& operator=(const DP_CSubject&) = delete;
    // Tells the observers with code -1, which is reserved for it, in the order in which they came. They may
    // not touch what the derived class was.
    virtual ~DP_CSubject();

    // The observer goes to the end of the list: 1. 0 when it is there already, or null.
    int Attach(DP_CObserver* pObserver);
    // 0 when it is not there.
    int Detach(DP_CObserver* pObserver);

    // Calls Update of the observers, those attached first coming first.
    // Observers should not come or go in an Update. If they do, those who came are not called, those who went
    // are not called any more, and the others are called once; if the subject itself goes, nobody else is
    // called with this code. An exception from an Update leaves Notify.
    void Notify(int nCode, void* pData);

protected:
    int Find(DP_CObserver* pObserver); // counted from 1; 0 when it is not there

private:
    CArray<DP_CObserver*, DP_CObserver*> m_observers;
};

class AFX_EXT_CLASS DP_CObserver
{
public:
    DP_CObserver();
    DP_CObserver(const DP_CObserver&) = delete;
    DP_CObserver& operator=(const DP_CObserver&) = delete;
    // Detaches itself from every subject it observes.
    virtual ~DP_CObserver();

    // What the subject tells. On code -1 the subject ends: call RemoveSubject, and nothing else of the
    // subject.
    virtual void Update(DP_CSubject* pSubject, int nCode, void* pData) = 0;

    // Attaches itself to the subject: 1. 0 when it observes it already, or for null.
    int Observe(DP_CSubject* pSubject);
    // Undoes it: 1. 0 when it does not observe the subject, or had been detached from it.
    int StopObserving(DP_CSubject* pSubject);
    // Takes the subject out of this observer's own list: 1. 0 when it is not there.
    int RemoveSubject(DP_CSubject* pSubject);

protected:
    int Find(DP_CSubject* pSubject); // counted from 1; 0 when it is not there

private:
    CArray<DP_CSubject*, DP_CSubject*> m_subjects;
};

// An observer that calls a function. When a subject ends, it lets go of it and calls nothing.
class AFX_EXT_CLASS CObserver : public DP_CObserver
{
public:
    CObserver();
    ~CObserver() override;

    // Null: nothing is called.
    void SetCallback(void (*pfnCallback)(void* pUser, DP_CSubject* pSubject, int nCode, void* pData),
                     void* pUser);

    void Update(DP_CSubject* pSubject, int nCode, void* pData) override;

private:
    void (*m_pfnCallback)(void*, DP_CSubject*, int, void*) = nullptr;
    void* m_pUser = nullptr;
};

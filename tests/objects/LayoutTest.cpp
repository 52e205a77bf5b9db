// What modules compiled elsewhere rely on: the order of virtual operations, and what objects consist of.
#include <ZEK_lib.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

// Behind the two that a virtual destructor takes.
constexpr std::size_t kFirst = 2;

template <class Function>
Function SlotOf(const void* object, std::size_t slot)
{
    const char* table = nullptr;
    Function function = nullptr;
    std::memcpy(&table, object, sizeof table);
    std::memcpy(&function, table + slot * sizeof function, sizeof function);
    return function;
}

class Agency : public CServiceAgency
{
public:
    int DoService(int nCode, void*) override { return nCode + 1; }
};

class Module : public CDynModule
{
public:
    int Initialize() override { return 7; }
};

class Observer : public DP_CObserver
{
public:
    void Update(DP_CSubject*, int nCode, void*) override { m_code = nCode; }
    int m_code = 0;
};

class Connector : public CDBUpdateConnector
{
public:
    void OnUpdate(CView*, LPARAM lHint, CObject*) override { m_hint = lHint; }
    LPARAM m_hint = 0;
};

class Job : public CThread
{
public:
    void ThreadRun() override { m_called += "run "; }
    void Progress(UINT, LPARAM) override { m_called += "progress "; }
    void ProgressText(UINT, const char*) override { m_called += "text "; }
    std::string m_called;
};

TEST(Layout, VirtualOperationsStandInTheirSlots)
{
    Agency agency;
    EXPECT_EQ(5, SlotOf<int (*)(void*, int, void*)>(&agency, kFirst)(&agency, 4, nullptr));
    Module module;
    EXPECT_EQ(7, SlotOf<int (*)(void*)>(&module, kFirst)(&module));
    Observer observer;
    SlotOf<void (*)(void*, void*, int, void*)>(&observer, kFirst)(&observer, nullptr, 3, nullptr);
    EXPECT_EQ(3, observer.m_code);
    Connector connector;
    SlotOf<void (*)(void*, void*, LPARAM, void*)>(&connector, kFirst)(&connector, nullptr, 9, nullptr);
    EXPECT_EQ(9, connector.m_hint);
    Job job;
    SlotOf<void (*)(void*)>(&job, kFirst)(&job);
    SlotOf<void (*)(void*, UINT, LPARAM)>(&job, kFirst + 1)(&job, 0, 0);
    SlotOf<void (*)(void*, UINT, const char*)>(&job, kFirst + 2)(&job, 0, "");
    EXPECT_EQ("run progress text ", job.m_called);
}

// A marker and a number, or a pointer more than the virtual table's.
struct TwoPointers {
    void* first;
    void* second;
};
struct ThreePointers {
    TwoPointers first;
    void* third;
};

static_assert(sizeof(CServiceAgency) == sizeof(void*));
static_assert(sizeof(CNotifyCtrl) == sizeof(void*));
static_assert(sizeof(CExtObjIntf) == sizeof(TwoPointers));
static_assert(sizeof(CExtObjImpl) == sizeof(TwoPointers));
static_assert(sizeof(CExtObjState) == sizeof(TwoPointers));
static_assert(sizeof(CDynModule) == sizeof(ThreePointers));
static_assert(sizeof(CDBUpdateConnector) == sizeof(ThreePointers));
static_assert(sizeof(DP_CSubject) == sizeof(void*) + sizeof(CArray<DP_CObserver*, DP_CObserver*>));
static_assert(sizeof(CObserver) == sizeof(DP_CObserver) + sizeof(TwoPointers));

} // namespace

// A module all of whose objects are static: built twice, as First and as Second. Each line says who does what
// while the process ends.
#include "LifeModule.h"

#include <ZEK_lib.h>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kAnswer = 42;

void Say(const char* what, int number)
{
    std::printf("%s %s %d\n", LIFE_NAME, what, number);
    std::fflush(stdout);
}

class Agency : public CServiceAgency
{
public:
    // What it makes and asks as it ends must still be there.
    ~Agency() override
    {
        static int ended = 0;
        const CDBUpdateConnector last;
        CNotifyCtrl::NotifyUpdate(nullptr, kFarewell, nullptr);
        Say("agency ends, asked itself:", CServiceHeadOffice::Instance()->ReqService(LIFE_NAME, 0, nullptr));
        if (++ended > 1)
            Say("agency ended", ended);
    }
    int DoService(int, void*) override { return kAnswer; }
};

// The first object of the module: what it does at its end comes after all the others'.
class Frame
{
public:
    Frame()
    {
        if (std::getenv("LIFE_SERVICES"))
            CServiceHeadOffice::Instance()->RegAgency(LIFE_NAME, new Agency);
    }
    ~Frame()
    {
        CNotifyCtrl::NotifyUpdate(nullptr, kFarewell, nullptr);
        Say("is gone, the other answers", CServiceHeadOffice::Instance()->ReqService(LIFE_OTHER, 0, nullptr));
    }
};

class Connector : public CDBUpdateConnector
{
public:
    Connector() { SetPriority(LIFE_NAME[0] == 'F'); }
    void OnUpdate(CView*, LPARAM lHint, CObject*) override { Say("hears", static_cast<int>(lHint)); }
};

void Tell(void*, DP_CSubject*, int nCode, void*)
{
    Say("is told", nCode);
}

class Observer : public CObserver
{
public:
    Observer() { SetCallback(&Tell, nullptr); }
};

// Registered with the other's manager: whoever ends first ends it.
class Guest : public CDynModule
{
public:
    ~Guest() override
    {
        Say("guest ends", 0);
        s_one = nullptr;
    }
    inline static Guest* s_one = nullptr;
};

class Guests
{
public:
    ~Guests() { delete Guest::s_one; }
};

const Frame g_frame;
const Connector g_connector;
DP_CSubject g_subject;
Observer g_observer;
CDynModuleMgr g_modules;
const Guests g_guests;

} // namespace

extern "C" AFX_EXT_API DP_CSubject* LifeSubject()
{
    return &g_subject;
}

extern "C" AFX_EXT_API CDynModuleMgr* LifeModules()
{
    return &g_modules;
}

extern "C" AFX_EXT_API void LifeMeet(DP_CSubject* subject, CDynModuleMgr* modules)
{
    g_observer.Observe(subject);
    Guest::s_one = new Guest;
    modules->AddDynModule(LIFE_NAME, Guest::s_one);
}

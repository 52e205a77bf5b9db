#include <NotifyCtrl.h>

#include <afxwin.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

using Log = std::vector<std::string>;

class Connector : public CDBUpdateConnector
{
public:
    Connector(const char* name, int priority, Log& log) : m_name(name), m_log(log) { SetPriority(priority); }

    void OnUpdate(CView*, LPARAM, CObject*) override
    {
        m_log.push_back(m_name);
        if (m_then)
            m_then();
    }

    std::function<void()> m_then;

private:
    std::string m_name;
    Log& m_log;
};

void Broadcast()
{
    CNotifyCtrl::NotifyUpdate(nullptr, 0, nullptr);
}

TEST(NotifyCtrl, CallsTheGreatestPriorityFirst)
{
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kGreatest = std::numeric_limits<int>::max();
    const struct {
        const char* label;
        int a, b, c;
        Log called;
    } rows[] = {{"5 1 10", 5, 1, 10, {"c", "a", "b"}},
                {"1 5 10", 1, 5, 10, {"c", "b", "a"}},
                {"10 5 1", 10, 5, 1, {"a", "b", "c"}},
                {"negative", -5, 0, -1, {"b", "c", "a"}},
                {"the ends", -1, kGreatest / 2, kLeast / 2 + 1, {"b", "a", "c"}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        Log log;
        Connector a("a", row.a, log);
        Connector b("b", row.b, log);
        Connector c("c", row.c, log);
        Broadcast();
        EXPECT_EQ(row.called, log);
    }
}

TEST(NotifyCtrl, ComparesPrioritiesByTheirWrappedDifference)
{
    Log log;
    Connector least("least", std::numeric_limits<int>::min(), log);
    Connector one("one", 1, log);
    Broadcast();
    EXPECT_THAT(log, ElementsAre("least", "one"));
}

TEST(NotifyCtrl, CallsEqualsOnceEach)
{
    Log log;
    Connector a("a", 0, log);
    Connector b("b", 0, log);
    Connector c("c", 0, log);
    EXPECT_EQ(0, a.GetPriority());
    Broadcast();
    EXPECT_THAT(log, UnorderedElementsAre("a", "b", "c"));
}

TEST(NotifyCtrl, DoesNothingWithoutConnectors)
{
    Broadcast();
    EXPECT_EQ(-1, CNotifyCtrl::Find(nullptr));
    CNotifyCtrl::Add(nullptr);
    EXPECT_EQ(-1, CNotifyCtrl::Find(nullptr));
    Broadcast();
}

TEST(NotifyCtrl, HandsItsArgumentsOn)
{
    class Keeper : public CDBUpdateConnector
    {
    public:
        void OnUpdate(CView* pSender, LPARAM lHint, CObject* pHint) override
        {
            m_sender = pSender;
            m_hint = lHint;
            m_object = pHint;
        }
        CView* m_sender = nullptr;
        LPARAM m_hint = 0;
        CObject* m_object = nullptr;
    };
    Keeper keeper;
    const CDBUpdateConnector silent; // does nothing by default
    CObject object;
    int data = 0;
    auto* const sender = reinterpret_cast<CView*>(&data); // only handed on
    CNotifyCtrl::NotifyUpdate(sender, reinterpret_cast<LPARAM>(&data), &object);
    EXPECT_EQ(sender, keeper.m_sender);
    EXPECT_EQ(reinterpret_cast<LPARAM>(&data), keeper.m_hint);
    EXPECT_EQ(&object, keeper.m_object);
}

TEST(NotifyCtrl, ListsConnectorsInTheOrderTheyCame)
{
    Log log;
    Connector a("a", 0, log);
    Connector b("b", 5, log);
    EXPECT_EQ(0, CNotifyCtrl::Find(&a));
    EXPECT_EQ(1, CNotifyCtrl::Find(&b));
    a.Connect(); // connected already
    CNotifyCtrl::Add(&a);
    EXPECT_EQ(0, CNotifyCtrl::Find(&a));
    a.Disconnect();
    a.Disconnect();
    EXPECT_EQ(-1, CNotifyCtrl::Find(&a));
    EXPECT_EQ(0, CNotifyCtrl::Find(&b)) << "later ones move up";
    Broadcast();
    EXPECT_THAT(log, ElementsAre("b"));
    a.Connect();
    EXPECT_EQ(1, CNotifyCtrl::Find(&a)) << "at the end";
    CNotifyCtrl::Del(&b);
    CNotifyCtrl::Del(&b);
    EXPECT_EQ(-1, CNotifyCtrl::Find(&b));
    b.Connect(); // believes it is connected
    EXPECT_EQ(-1, CNotifyCtrl::Find(&b));
}

TEST(NotifyCtrl, TakesPrioritiesFromTheNextBroadcastOn)
{
    Log log;
    Connector a("a", 3, log);
    Connector b("b", 2, log);
    Connector c("c", 1, log);
    a.m_then = [&] {
        c.SetPriority(9);
        b.SetPriority(-9);
    };
    Broadcast();
    EXPECT_THAT(log, ElementsAre("a", "b", "c"));
    log.clear();
    Broadcast();
    EXPECT_THAT(log, ElementsAre("c", "a", "b"));
}

// What the first of four handlers does, and who is called in that broadcast and in the next one.
TEST(NotifyCtrl, SurvivesWhatHandlersDo)
{
    Log log;
    std::unique_ptr<Connector> c[5];
    const auto add = [&](int i, int priority) {
        const char* const names[] = {"0", "1", "2", "3", "4"};
        c[i] = std::make_unique<Connector>(names[i], priority, log);
    };
    const struct {
        const char* label;
        std::function<void()> deed;
        Log called;
        Log next;
    } rows[] = {
        {"disconnects a later one", [&] { c[2]->Disconnect(); }, {"0", "1", "3"}, {"0", "1", "3"}},
        {"deletes a later one", [&] { c[2].reset(); }, {"0", "1", "3"}, {"0", "1", "3"}},
        {"disconnects an earlier one", [&] { c[0]->Disconnect(); }, {"0", "1", "2", "3"}, {"1", "2", "3"}},
        {"deletes an earlier one", [&] { c[0].reset(); }, {"0", "1", "2", "3"}, {"1", "2", "3"}},
        {"disconnects itself", [&] { c[1]->Disconnect(); }, {"0", "1", "2", "3"}, {"0", "2", "3"}},
        {"deletes all later ones", [&] { c[2].reset(), c[3].reset(); }, {"0", "1"}, {"0", "1"}},
        {"creates one", [&] { add(4, 99); }, {"0", "1", "2", "3"}, {"4", "0", "1", "2", "3"}},
        {"creates two, disconnects one",
         [&] { add(4, 99), c[2]->Disconnect(), c[0]->Disconnect(); },
         {"0", "1", "3"},
         {"4", "1", "3"}},
        {"one out, one in: the number is the same, so nobody looks",
         [&] { c[2]->Disconnect(), add(4, 99); },
         {"0", "1", "2", "3"},
         {"4", "0", "1", "3"}},
        {"one deleted, one in: the dead are never called",
         [&] { c[2].reset(), add(4, 99); },
         {"0", "1", "3"},
         {"4", "0", "1", "3"}},
        {"goes and comes",
         [&] { c[2]->Disconnect(), c[2]->Connect(); },
         {"0", "1", "2", "3"},
         {"0", "1", "2", "3"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        c[4].reset();
        for (int i = 0; i < 4; ++i)
            add(i, 10 - i);
        bool done = false;
        c[1]->m_then = [&] {
            if (!done)
                row.deed();
            done = true;
        };
        log.clear();
        Broadcast();
        EXPECT_EQ(row.called, log);
        log.clear();
        Broadcast();
        EXPECT_EQ(row.next, log);
    }
}

TEST(NotifyCtrl, LooksAgainWhenTheNumberChangesLater)
{
    Log log;
    Connector a("a", 4, log);
    Connector b("b", 3, log);
    Connector c("c", 2, log);
    std::unique_ptr<Connector> fresh;
    a.m_then = [&] {
        c.Disconnect();
        fresh = std::make_unique<Connector>("new", 0, log);
    };
    b.m_then = [&] { fresh.reset(); }; // c is found missing now
    Broadcast();
    EXPECT_THAT(log, ElementsAre("a", "b"));
}

TEST(NotifyCtrl, BroadcastsMayNest)
{
    Log log;
    Connector a("a", 3, log);
    Connector b("b", 2, log);
    auto c = std::make_unique<Connector>("c", 1, log);
    int depth = 0;
    a.m_then = [&] {
        if (++depth == 1)
            Broadcast();
    };
    b.m_then = [&] { c.reset(); }; // in the inner one; the outer one must know
    Broadcast();
    EXPECT_THAT(log, ElementsAre("a", "a", "b", "b"));
}

TEST(NotifyCtrl, LetsExceptionsOut)
{
    Log log;
    Connector a("a", 2, log);
    Connector b("b", 1, log);
    a.m_then = [] { throw 5; };
    EXPECT_THROW(Broadcast(), int);
    a.m_then = {};
    b.Disconnect(); // no broadcast is running any more that would note it
    log.clear();
    Broadcast();
    EXPECT_THAT(log, ElementsAre("a"));
}

TEST(NotifyCtrl, CopiesCarryTheMarkerOfTheOriginal)
{
    Log log;
    Connector original("original", 7, log);
    {
        const Connector copy(original);
        EXPECT_EQ(7, copy.GetPriority());
        EXPECT_EQ(-1, CNotifyCtrl::Find(const_cast<Connector*>(&copy)));
        EXPECT_EQ(0, CNotifyCtrl::Find(&original));
    }
    EXPECT_EQ(-1, CNotifyCtrl::Find(&original)) << "the end of the copy has taken it out";
    original.Connect();
    EXPECT_EQ(-1, CNotifyCtrl::Find(&original)) << "it believes it is connected";
    original.Disconnect();
    original.Connect();
    EXPECT_EQ(0, CNotifyCtrl::Find(&original));
}

TEST(NotifyCtrl, AssignedMarkersLeaveNothingDangling)
{
    Log log;
    CDBUpdateConnector silent;
    silent.Disconnect();
    {
        CDBUpdateConnector listed;
        listed = silent; // listed, and not marked any more
        EXPECT_EQ(0, CNotifyCtrl::Find(&listed));
    }
    CDBUpdateConnector copy;
    copy.Disconnect();
    {
        const CDBUpdateConnector original;
        copy = original;
    }
    copy.Disconnect(); // of an object that is gone
    const Connector last("last", 0, log);
    Broadcast();
    EXPECT_THAT(log, ElementsAre("last"));
}

} // namespace

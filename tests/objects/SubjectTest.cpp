#include <Subject.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Log = std::vector<std::string>;

class Subject : public DP_CSubject
{
public:
    using DP_CSubject::Find;
};

// Logs what it is told and lets go of a subject that ends; `then` does more.
class Observer : public DP_CObserver
{
public:
    Observer(const char* name, Log& log, std::function<void(DP_CSubject*, int)> then = {})
        : m_name(name), m_log(log), m_then(std::move(then))
    {
    }
    using DP_CObserver::Find;

    void Update(DP_CSubject* pSubject, int nCode, void*) override
    {
        m_log.push_back(m_name + std::to_string(nCode));
        if (nCode == -1)
            RemoveSubject(pSubject);
        if (m_then)
            m_then(pSubject, nCode);
    }

private:
    std::string m_name;
    Log& m_log;
    std::function<void(DP_CSubject*, int)> m_then;
};

TEST(Subject, TellsItsObserversInTheOrderTheyCame)
{
    Log log;
    Subject subject;
    Observer a("a", log);
    Observer b("b", log);
    Observer c("c", log);
    for (Observer* observer : {&b, &a, &c})
        EXPECT_EQ(1, subject.Attach(observer));
    EXPECT_EQ(0, subject.Attach(&a));
    EXPECT_EQ(1, subject.Find(&b));
    EXPECT_EQ(3, subject.Find(&c));
    subject.Notify(7, nullptr);
    EXPECT_THAT(log, ElementsAre("b7", "a7", "c7"));

    log.clear();
    EXPECT_EQ(1, subject.Detach(&b));
    EXPECT_EQ(0, subject.Detach(&b));
    EXPECT_EQ(0, subject.Find(&b));
    EXPECT_EQ(1, subject.Find(&a)) << "later ones move up";
    EXPECT_EQ(1, subject.Attach(&b));
    subject.Notify(0, nullptr);
    EXPECT_THAT(log, ElementsAre("a0", "c0", "b0"));
    for (Observer* observer : {&a, &b, &c})
        subject.Detach(observer);
}

TEST(Subject, ToleratesNulls)
{
    Log log;
    Subject subject;
    Observer observer("a", log);
    EXPECT_EQ(0, subject.Attach(nullptr));
    EXPECT_EQ(0, subject.Detach(nullptr));
    EXPECT_EQ(0, observer.Observe(nullptr));
    EXPECT_EQ(0, observer.StopObserving(nullptr));
    EXPECT_EQ(0, observer.RemoveSubject(nullptr));
    subject.Notify(1, nullptr);
    EXPECT_THAT(log, IsEmpty());
}

TEST(Observer, LinksBothSides)
{
    Log log;
    Subject first;
    Subject second;
    Observer observer("o", log);
    EXPECT_EQ(0, observer.StopObserving(&first));
    EXPECT_EQ(1, observer.Observe(&first));
    EXPECT_EQ(0, observer.Observe(&first));
    EXPECT_EQ(1, observer.Observe(&second));
    EXPECT_EQ(2, observer.Find(&second));
    EXPECT_EQ(1, first.Find(&observer));
    first.Notify(3, nullptr);
    EXPECT_THAT(log, ElementsAre("o3")) << "once";
    EXPECT_EQ(1, observer.StopObserving(&first));
    EXPECT_EQ(0, first.Find(&observer));
    EXPECT_EQ(1, observer.Find(&second));
    EXPECT_EQ(0, observer.StopObserving(&first));
}

TEST(Observer, SidesMayBeChangedAlone)
{
    Log log;
    Subject subject;
    Observer observer("o", log);
    EXPECT_EQ(1, subject.Attach(&observer));
    EXPECT_EQ(0, observer.StopObserving(&subject)) << "it never observed";
    EXPECT_EQ(1, subject.Find(&observer)) << "so it stays attached";
    EXPECT_EQ(1, observer.Observe(&subject)) << "attached already or not";
    EXPECT_EQ(1, observer.RemoveSubject(&subject));
    EXPECT_EQ(0, observer.RemoveSubject(&subject));
    EXPECT_EQ(1, subject.Find(&observer));
    EXPECT_EQ(1, observer.Observe(&subject));
    EXPECT_EQ(1, subject.Detach(&observer));
    EXPECT_EQ(1, observer.Find(&subject));
    EXPECT_EQ(0, observer.StopObserving(&subject)) << "what Detach answers";
    EXPECT_EQ(0, observer.Find(&subject));
}

struct Called {
    int times = 0;
    DP_CSubject* subject = nullptr;
    int code = 0;
    void* data = nullptr;
};

void Call(void* pUser, DP_CSubject* pSubject, int nCode, void* pData)
{
    auto* called = static_cast<Called*>(pUser);
    *called = {called->times + 1, pSubject, nCode, pData};
}

TEST(CallbackObserver, ForwardsAllCodesButOne)
{
    Subject subject;
    CObserver observer;
    observer.Observe(&subject);
    subject.Notify(1, nullptr); // no callback yet
    Called called;
    int data = 0;
    observer.SetCallback(&Call, &called);
    for (const int code : {0, 1, 2147483647, -2, -2147483647 - 1}) {
        SCOPED_TRACE(code);
        called.times = 0;
        subject.Notify(code, &data);
        EXPECT_EQ(1, called.times);
        EXPECT_EQ(&subject, called.subject);
        EXPECT_EQ(code, called.code);
        EXPECT_EQ(&data, called.data);
    }
    observer.SetCallback(nullptr, nullptr);
    subject.Notify(1, nullptr);
    observer.SetCallback(&Call, &called);
    called = {};
    observer.Update(&subject, -1, nullptr);
    EXPECT_EQ(0, called.times);
    EXPECT_EQ(0, observer.StopObserving(&subject)) << "it has let go of the subject";
    subject.Detach(&observer);
}

TEST(CallbackObserver, MayOutliveItsSubject)
{
    Called called;
    CObserver observer;
    observer.SetCallback(&Call, &called);
    auto subject = std::make_unique<Subject>();
    observer.Observe(subject.get());
    subject.reset();
    EXPECT_EQ(0, called.times);
}

struct SixObjects {
    SixObjects(unsigned links)
    {
        for (int i = 0; i < 3; ++i) {
            subjects[i] = std::make_unique<Subject>();
            observers[i] = std::make_unique<CObserver>();
        }
        for (int i = 0; i < 9; ++i) {
            if (links >> i & 1)
                observers[i / 3]->Observe(subjects[i % 3].get());
        }
    }
    void End(int object) { object < 3 ? subjects[object].reset() : observers[object - 3].reset(); }
    // Whether those that are left are linked as they were.
    bool Agree(unsigned links) const
    {
        for (int i = 0; i < 9; ++i) {
            Subject* subject = subjects[i % 3].get();
            CObserver* observer = observers[i / 3].get();
            if (subject && observer && (subject->Find(observer) > 0) != ((links >> i & 1) != 0))
                return false;
        }
        return true;
    }

    std::unique_ptr<Subject> subjects[3];
    std::unique_ptr<CObserver> observers[3];
};

// All link patterns of three subjects and three observers, ended in orders of the six that are all met with
// some pattern.
TEST(Observer, EitherSideMayEndFirst)
{
    constexpr unsigned kPatterns = 512;
    constexpr unsigned kStride = 7; // of the orders; 720 are all
    unsigned turn = 0;
    for (unsigned links = 0; links < kPatterns; ++links) {
        int order[6] = {0, 1, 2, 3, 4, 5};
        do {
            if (++turn % kStride != 0)
                continue;
            SixObjects objects(links);
            for (const int object : order) {
                objects.End(object);
                ASSERT_TRUE(objects.Agree(links)) << "pattern " << links << ", turn " << turn;
            }
        } while (std::next_permutation(std::begin(order), std::end(order)));
    }
}

// Observers that do in Update what they should not: nobody is called twice or after they went.
TEST(Subject, EndureWhatObserversDoMeanwhile)
{
    Log log;
    auto subject = std::make_unique<Subject>();
    std::unique_ptr<Observer> others[3];
    std::function<void()> deed;
    Observer doer("d", log, [&deed](DP_CSubject*, int code) {
        if (code != -1)
            std::exchange(deed, [] {})(); // once
    });
    std::unique_ptr<Observer> extra;
    const auto build = [&] {
        subject = std::make_unique<Subject>();
        const char* const names[] = {"a", "b", "c"};
        for (int i = 0; i < 3; ++i)
            others[i] = std::make_unique<Observer>(names[i], log);
        extra = std::make_unique<Observer>("x", log);
        others[0]->Observe(subject.get());
        doer.Observe(subject.get());
        others[1]->Observe(subject.get());
        others[2]->Observe(subject.get());
    };
    const struct {
        const char* label;
        std::function<void()> deed;
        Log told;
    } rows[] = {
        {"leaves", [&] { doer.StopObserving(subject.get()); }, {"a1", "d1", "b1", "c1"}},
        {"removes an earlier one", [&] { others[0].reset(); }, {"a1", "d1", "b1", "c1"}},
        {"removes the next", [&] { others[1].reset(); }, {"a1", "d1", "c1"}},
        {"removes the last", [&] { others[2].reset(); }, {"a1", "d1", "b1"}},
        {"removes all others", [&] { std::fill(others, others + 3, nullptr); }, {"a1", "d1"}},
        {"adds one", [&] { extra->Observe(subject.get()); }, {"a1", "d1", "b1", "c1"}},
        {"goes and comes", // to the end, where it is new
         [&] { doer.StopObserving(subject.get()), doer.Observe(subject.get()); },
         {"a1", "d1", "b1", "c1"}},
        {"replaces the next", [&] { others[1].reset(), extra->Observe(subject.get()); }, {"a1", "d1", "c1"}},
        {"ends the subject", [&] { subject.reset(); }, {"a1", "d1", "a-1", "d-1", "b-1", "c-1"}},
        {"tells in its turn",
         [&] { subject->Notify(2, nullptr); },
         {"a1", "d1", "a2", "d2", "b2", "c2", "b1", "c1"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        build();
        deed = row.deed;
        log.clear();
        subject->Notify(1, nullptr);
        EXPECT_EQ(row.told, log);
    }
}

TEST(Subject, TellsEveryoneThatItEndsEvenIfTheyLeave)
{
    Log log;
    auto subject = std::make_unique<Subject>();
    Observer a("a", log, [](DP_CSubject* ending, int) { ending->Detach(nullptr); });
    Observer b("b", log);
    Observer leaver("l", log);
    std::unique_ptr<Observer> gone;
    gone = std::make_unique<Observer>("g", log, [&gone](DP_CSubject*, int) { gone.reset(); });
    for (Observer* observer : {&a, gone.get(), &leaver, &b})
        observer->Observe(subject.get());
    subject.reset();
    EXPECT_THAT(log, ElementsAre("a-1", "g-1", "l-1", "b-1"));
}

TEST(Subject, SurvivesAnObserverThatThrows)
{
    Log log;
    Subject subject;
    Observer thrower("t", log, [](DP_CSubject*, int code) {
        if (code == 1)
            throw std::runtime_error("no");
    });
    Observer last("l", log);
    thrower.Observe(&subject);
    last.Observe(&subject);
    EXPECT_THROW(subject.Notify(1, nullptr), std::runtime_error);
    subject.Notify(2, nullptr);
    EXPECT_THAT(log, ElementsAre("t1", "t2", "l2"));
}

} // namespace

// Subjects and observers against a model: two lists of lists, changed as the page says, also by observers
// while they are told something.
#include "Randoms.h"

#include <Subject.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

constexpr int kMost = 12;
constexpr std::uint64_t kSeed = 20260701;

template <class T>
bool Contains(const std::vector<T>& list, T wanted)
{
    return std::find(list.begin(), list.end(), wanted) != list.end();
}

template <class T>
bool Erase(std::vector<T>& list, T wanted)
{
    const auto found = std::find(list.begin(), list.end(), wanted);
    if (found == list.end())
        return false;
    list.erase(found);
    return true;
}

class Subject : public DP_CSubject
{
public:
    using DP_CSubject::Find;
};

class Pair;

class Observer : public DP_CObserver
{
public:
    Observer(Pair& pair, int number) : m_pair(pair), m_number(number) {}
    using DP_CObserver::Find;
    void Update(DP_CSubject* pSubject, int nCode, void* pData) override;

private:
    Pair& m_pair;
    int m_number;
};

// A Notify that is running, and who is still to be told.
struct Running {
    int subject;
    std::vector<int> untold;
};

constexpr std::size_t kDeepest = 3;

// Objects are numbered by their places; an empty place has none.
class Pair
{
public:
    explicit Pair(Randoms& random) : m_random(random) {}

    int Steps() const { return m_steps; }

    void Step()
    {
        ++m_steps;
        const int s = m_random.Below(kMost);
        const int o = m_random.Below(kMost);
        if (!m_subjects[s] || !m_observers[o])
            return Make(s, o);
        switch (m_random.Below(8)) {
        case 0:
        case 1:
            return Observe(s, o);
        case 2:
            return StopObserving(s, o);
        case 3:
            return Attach(s, o);
        case 4:
            return Detach(s, o);
        case 5:
            return m_running.size() < kDeepest ? Notify(s) : Observe(s, o);
        case 6:
            return m_random.OneIn(6) ? EndSubject(s) : Remove(s, o);
        default:
            return m_random.OneIn(6) ? EndObserver(o) : Observe(s, o);
        }
    }

    // An observer is told something: it must be its turn. What it does then may end it.
    void Told(int o)
    {
        ASSERT_FALSE(m_running.back().untold.empty());
        ASSERT_EQ(m_running.back().untold.front(), o);
        m_running.back().untold.erase(m_running.back().untold.begin());
        if (m_random.OneIn(3))
            Step();
    }

    void Check()
    {
        for (int s = 0; s < kMost; ++s)
            for (int o = 0; o < kMost; ++o) {
                if (!m_subjects[s] || !m_observers[o])
                    continue;
                ASSERT_EQ(PlaceOf(m_attached[s], o), m_subjects[s]->Find(m_observers[o].get()));
                ASSERT_EQ(PlaceOf(m_observed[o], s), m_observers[o]->Find(m_subjects[s].get()));
            }
    }

private:
    static int PlaceOf(const std::vector<int>& list, int wanted)
    {
        const auto found = std::find(list.begin(), list.end(), wanted);
        return found == list.end() ? 0 : static_cast<int>(found - list.begin()) + 1;
    }

    void Make(int s, int o)
    {
        if (!m_subjects[s])
            m_subjects[s] = std::make_unique<Subject>();
        if (!m_observers[o])
            m_observers[o] = std::make_unique<Observer>(*this, o);
    }
    void Observe(int s, int o)
    {
        const bool isNew = !Contains(m_observed[o], s);
        ASSERT_EQ(isNew, m_observers[o]->Observe(m_subjects[s].get()));
        if (isNew)
            m_observed[o].push_back(s);
        if (isNew && !Contains(m_attached[s], o))
            m_attached[s].push_back(o);
    }
    void StopObserving(int s, int o)
    {
        const bool both = Erase(m_observed[o], s) && Unattach(s, o);
        ASSERT_EQ(both, m_observers[o]->StopObserving(m_subjects[s].get()));
    }
    void Attach(int s, int o)
    {
        const bool isNew = !Contains(m_attached[s], o);
        ASSERT_EQ(isNew, m_subjects[s]->Attach(m_observers[o].get()));
        if (isNew)
            m_attached[s].push_back(o);
    }
    void Detach(int s, int o) { ASSERT_EQ(Unattach(s, o), m_subjects[s]->Detach(m_observers[o].get())); }
    void Remove(int s, int o)
    {
        ASSERT_EQ(Erase(m_observed[o], s), m_observers[o]->RemoveSubject(m_subjects[s].get()));
    }
    bool Unattach(int s, int o)
    {
        for (Running& running : m_running) {
            if (running.subject == s)
                Erase(running.untold, o);
        }
        return Erase(m_attached[s], o);
    }
    void Notify(int s)
    {
        m_running.push_back({s, m_attached[s]});
        m_subjects[s]->Notify(1, nullptr);
        ASSERT_TRUE(m_running.back().untold.empty()) << "somebody was not told";
        m_running.pop_back();
    }

    // Who has changed one side alone undoes it before either ends.
    void MendSubject(int s)
    {
        for (int o = 0; o < kMost; ++o) {
            if (!m_observers[o] || Contains(m_attached[s], o) == Contains(m_observed[o], s))
                continue;
            Contains(m_attached[s], o) ? Detach(s, o) : Remove(s, o);
        }
    }
    void EndSubject(int s)
    {
        MendSubject(s);
        while (!m_attached[s].empty())
            Unattach(s, m_attached[s].front());
        m_subjects[s].reset();
        for (auto& observed : m_observed)
            Erase(observed, s);
    }
    void EndObserver(int o)
    {
        for (int s = 0; s < kMost; ++s)
            if (m_subjects[s])
                MendSubject(s);
        for (int s = 0; s < kMost; ++s)
            Unattach(s, o);
        m_observed[o].clear();
        m_observers[o].reset();
    }

    Randoms& m_random;
    int m_steps = 0;
    std::vector<Running> m_running;
    std::unique_ptr<Subject> m_subjects[kMost];
    std::unique_ptr<Observer> m_observers[kMost];
    std::vector<int> m_attached[kMost]; // observers of each subject
    std::vector<int> m_observed[kMost]; // subjects of each observer

public:
    ~Pair()
    {
        for (int s = 0; s < kMost; ++s)
            if (m_subjects[s])
                EndSubject(s);
    }
};

void Observer::Update(DP_CSubject* pSubject, int nCode, void*)
{
    if (nCode == -1)
        RemoveSubject(pSubject);
    else
        m_pair.Told(m_number);
}

TEST(ObserverModel, AgreesAfterEveryStep)
{
    const int steps = RandomSteps(250000);
    Randoms random(kSeed);
    Pair pair(random);
    while (pair.Steps() < steps) {
        pair.Step();
        pair.Check();
        if (HasFatalFailure())
            FAIL() << "seed " << kSeed << ", step " << pair.Steps();
    }
}

} // namespace

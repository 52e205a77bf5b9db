// Subjects and observers against a model: two lists of lists, changed as the page says.
#include "Randoms.h"

#include <Subject.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
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

class Observer : public DP_CObserver
{
public:
    using DP_CObserver::Find;
    void Update(DP_CSubject* pSubject, int nCode, void* pData) override
    {
        if (nCode == -1)
            RemoveSubject(pSubject);
        else
            static_cast<std::vector<Observer*>*>(pData)->push_back(this);
    }
};

// Objects are numbered by their places; an empty place has none.
class Pair
{
public:
    void Step(Randoms& random)
    {
        const int s = random.Below(kMost);
        const int o = random.Below(kMost);
        if (!m_subjects[s] || !m_observers[o])
            return Make(s, o);
        switch (random.Below(8)) {
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
            return Notify(s);
        case 6:
            return random.OneIn(6) ? EndSubject(s) : Remove(s, o);
        default:
            return random.OneIn(6) ? EndObserver(o) : Observe(s, o);
        }
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
            m_observers[o] = std::make_unique<Observer>();
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
        const bool both = Erase(m_observed[o], s) && Erase(m_attached[s], o);
        ASSERT_EQ(both, m_observers[o]->StopObserving(m_subjects[s].get()));
    }
    void Attach(int s, int o)
    {
        const bool isNew = !Contains(m_attached[s], o);
        ASSERT_EQ(isNew, m_subjects[s]->Attach(m_observers[o].get()));
        if (isNew)
            m_attached[s].push_back(o);
    }
    void Detach(int s, int o)
    {
        ASSERT_EQ(Erase(m_attached[s], o), m_subjects[s]->Detach(m_observers[o].get()));
    }
    void Remove(int s, int o)
    {
        ASSERT_EQ(Erase(m_observed[o], s), m_observers[o]->RemoveSubject(m_subjects[s].get()));
    }
    void Notify(int s)
    {
        std::vector<Observer*> told;
        std::vector<Observer*> expected;
        for (const int o : m_attached[s])
            expected.push_back(m_observers[o].get());
        m_subjects[s]->Notify(1, &told);
        ASSERT_EQ(expected, told);
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
        m_subjects[s].reset();
        m_attached[s].clear();
        for (auto& observed : m_observed)
            Erase(observed, s);
    }
    void EndObserver(int o)
    {
        for (int s = 0; s < kMost; ++s)
            if (m_subjects[s])
                MendSubject(s);
        m_observers[o].reset();
        m_observed[o].clear();
        for (auto& attached : m_attached)
            Erase(attached, o);
    }

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

TEST(ObserverModel, AgreesAfterEveryStep)
{
    const int steps = RandomSteps(250000);
    Randoms random(kSeed);
    Pair pair;
    for (int step = 0; step < steps; ++step) {
        pair.Step(random);
        pair.Check();
        if (HasFatalFailure())
            FAIL() << "seed " << kSeed << ", step " << step;
    }
}

} // namespace

// Broadcasts against a model that follows the documented steps one by one and never looks at memory: it knows
// connectors by numbers that are not used again.
#include "Randoms.h"

#include <NotifyCtrl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace {

constexpr std::uint64_t kSeed = 20260702;
constexpr std::size_t kMost = 10;
constexpr int kDeepest = 3;

class World;

class Connector : public CDBUpdateConnector
{
public:
    Connector(World& world, int number) : m_world(world), m_number(number) {}
    void OnUpdate(CView*, LPARAM, CObject*) override;

private:
    World& m_world;
    int m_number;
};

// A broadcast as the model runs it, in step with the library's.
struct Expected {
    std::set<int> uncalled; // those the model still allows
    std::size_t count;      // seen last
    int lastPriority;
    std::map<int, int> priorities; // at the start
};

class World
{
public:
    explicit World(Randoms& random) : m_random(random) {}

    void Step()
    {
        Act();
        Check();
        if (m_random.OneIn(4))
            Broadcast();
    }

    int Acts() const { return m_acts; }

    // The library has called connector `number`.
    void Called(int number)
    {
        Settle(m_running.back());
        Expected& now = m_running.back();
        ASSERT_TRUE(m_living.count(number)) << "a dead connector is called";
        ASSERT_EQ(1U, now.uncalled.erase(number)) << "called twice, too late or out of turn";
        ASSERT_GE(now.lastPriority, now.priorities[number]) << "out of order";
        now.lastPriority = now.priorities[number];
        // Everybody with a greater priority must have been called or passed over by now.
        for (const int other : now.uncalled)
            ASSERT_LE(now.priorities[other], now.lastPriority) << "passed over without reason";
        for (int acts = m_random.Below(3); acts > 0; --acts)
            Act();
        if (m_running.size() < kDeepest && m_random.OneIn(20))
            Broadcast();
    }

private:
    void Broadcast()
    {
        Expected start{{}, m_listed.size(), 1 << 30, m_priorities};
        start.uncalled.insert(m_listed.begin(), m_listed.end());
        m_running.push_back(start);
        CNotifyCtrl::NotifyUpdate(nullptr, 0, nullptr);
        Settle(m_running.back());
        ASSERT_TRUE(m_running.back().uncalled.empty()) << "not called";
        m_running.pop_back();
    }

    // The check behind each call: only a changed number has the later ones looked at.
    void Settle(Expected& now)
    {
        for (auto it = now.uncalled.begin(); it != now.uncalled.end();)
            it = m_living.count(*it) ? std::next(it) : now.uncalled.erase(it);
        if (now.count == m_listed.size())
            return;
        now.count = m_listed.size();
        for (auto it = now.uncalled.begin(); it != now.uncalled.end();)
            it = IsListed(*it) ? std::next(it) : now.uncalled.erase(it);
    }

    void Act()
    {
        ++m_acts;
        const int chosen = m_living.empty() ? -1 : Choose();
        switch (m_random.Below(6)) {
        case 0:
            return m_living.size() < kMost ? Create() : Delete(chosen);
        case 1:
            return Delete(chosen);
        case 2:
            return Connect(chosen);
        case 3:
            return Disconnect(chosen);
        case 4: // one out, one in
            Disconnect(chosen);
            return m_living.size() < kMost ? Create() : Connect(chosen);
        default:
            return SetPriority(chosen);
        }
    }

    int Choose()
    {
        auto it = m_living.begin();
        std::advance(it, m_random.Below(static_cast<int>(m_living.size())));
        return it->first;
    }
    bool IsListed(int number) const
    {
        return std::find(m_listed.begin(), m_listed.end(), number) != m_listed.end();
    }
    void Create()
    {
        const int number = ++m_last;
        m_living[number] = std::make_unique<Connector>(*this, number);
        m_listed.push_back(number);
        m_priorities[number] = 0;
        SetPriority(number);
    }
    void Delete(int number)
    {
        if (number < 0)
            return;
        m_living.erase(number);
        m_priorities.erase(number);
        Unlist(number);
    }
    void Connect(int number)
    {
        if (number < 0)
            return;
        m_living[number]->Connect();
        if (!IsListed(number))
            m_listed.push_back(number);
    }
    void Disconnect(int number)
    {
        if (number < 0)
            return;
        m_living[number]->Disconnect();
        Unlist(number);
    }
    void SetPriority(int number)
    {
        if (number < 0)
            return;
        m_priorities[number] = m_random.Below(7) - 3;
        m_living[number]->SetPriority(m_priorities[number]);
    }
    void Unlist(int number)
    {
        m_listed.erase(std::remove(m_listed.begin(), m_listed.end(), number), m_listed.end());
    }

    void Check()
    {
        for (const auto& [number, connector] : m_living) {
            const auto found = std::find(m_listed.begin(), m_listed.end(), number);
            const int place = found == m_listed.end() ? -1 : static_cast<int>(found - m_listed.begin());
            ASSERT_EQ(place, CNotifyCtrl::Find(connector.get()));
        }
    }

    Randoms& m_random;
    std::map<int, std::unique_ptr<Connector>> m_living;
    std::vector<int> m_listed;
    std::map<int, int> m_priorities;
    std::vector<Expected> m_running;
    int m_last = 0;
    int m_acts = 0;
};

void Connector::OnUpdate(CView*, LPARAM, CObject*)
{
    World& world = m_world; // this object may end meanwhile
    world.Called(m_number);
}

TEST(BroadcastModel, AgreesAfterEveryStep)
{
    const int steps = RandomSteps(250000);
    Randoms random(kSeed);
    World world(random);
    while (world.Acts() < steps) {
        world.Step();
        if (HasFatalFailure())
            FAIL() << "seed " << kSeed << ", after " << world.Acts();
    }
}

} // namespace

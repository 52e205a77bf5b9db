// Modules, parts and services against a model: ordered maps from names to numbers.
#include "Randoms.h"

#include <DynModuleMgr.h>
#include <ExtObj.h>
#include <ServiceHeadOffice.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace {

constexpr std::uint64_t kSeed = 20260703;
constexpr int kNames = 9;
constexpr int kManagers = 3;
constexpr std::size_t kMostModules = 12;

std::string NameOf(int i)
{
    return std::string(i % 2 ? "name" : "Name") + std::to_string(i / 2);
}

class Module : public CDynModule
{
public:
    explicit Module(int& ended) : m_ended(ended) {}
    ~Module() override { ++m_ended; }

private:
    int& m_ended;
};

using Entry = std::pair<int, std::string>; // a manager and a name

// What the model knows of a module: where it is listed, and what its back pointer says.
struct Known {
    Module* module = nullptr;
    std::set<Entry> entries;
    Entry back{-1, ""};
};

class Modules
{
public:
    Modules()
    {
        for (auto& manager : m_managers)
            manager = std::make_unique<CDynModuleMgr>();
    }
    ~Modules()
    {
        for (int i = 0; i < kManagers; ++i)
            EndManager(i);
        while (!m_known.empty())
            EndModule(m_known.begin()->first);
    }

    void Step(Randoms& random)
    {
        const int manager = random.Below(kManagers);
        const std::string name = NameOf(random.Below(kNames));
        if (m_known.empty() || (m_known.size() < kMostModules && random.OneIn(4)))
            Make();
        auto chosen = m_known.begin();
        std::advance(chosen, random.Below(static_cast<int>(m_known.size())));
        switch (random.Below(12)) {
        case 0:
            return EndModule(chosen->first);
        case 1:
            return random.OneIn(8) ? EndManager(manager) : Copy(chosen->second);
        case 2:
        case 3:
        case 4:
            return Delete(manager, name);
        case 5:
            return ReBucket(manager, random.Below(40));
        default:
            return Add(manager, name, chosen->second);
        }
    }

    void Check()
    {
        ASSERT_EQ(m_made - static_cast<int>(m_known.size()), m_ended);
        for (int manager = 0; manager < kManagers; ++manager)
            for (int i = 0; i < kNames; ++i) {
                const Known* known = At({manager, NameOf(i)});
                ASSERT_EQ(known ? known->module : nullptr,
                          m_managers[manager]->GetDynModule(NameOf(i).c_str()));
            }
    }

private:
    Known* At(const Entry& entry)
    {
        for (auto& [number, known] : m_known)
            if (known.entries.count(entry))
                return &known;
        return nullptr;
    }
    bool IsEmpty(int manager) const
    {
        for (const auto& [number, known] : m_known)
            for (const Entry& entry : known.entries)
                if (entry.first == manager)
                    return false;
        return true;
    }
    void Unlist(const Entry& entry)
    {
        if (Known* known = At(entry)) {
            known->entries.erase(entry);
            known->back = {-1, ""};
        }
    }

    void Make() { m_known[m_made++].module = new Module(m_ended); }
    void Add(int manager, const std::string& name, Known& known)
    {
        const bool isFree = !At({manager, name});
        ASSERT_EQ(isFree, m_managers[manager]->AddDynModule(name.c_str(), known.module));
        if (!isFree)
            return;
        known.entries.insert({manager, name});
        known.back = {manager, name};
    }
    void Delete(int manager, const std::string& name)
    {
        ASSERT_EQ(At({manager, name}) != nullptr, m_managers[manager]->DelDynModule(name.c_str()));
        Unlist({manager, name});
    }
    // A copy that ends takes out what its back pointer and name lead to.
    void Copy(const Known& known)
    {
        const Entry back = known.back;
        {
            const CDynModule copy(*known.module);
        }
        if (back.first >= 0)
            Unlist(back);
    }
    void EndModule(int number)
    {
        delete m_known[number].module;
        m_known.erase(number);
    }
    void EndManager(int manager)
    {
        m_managers[manager] = nullptr;
        for (auto it = m_known.begin(); it != m_known.end();) {
            const bool isListed =
                std::any_of(it->second.entries.begin(), it->second.entries.end(),
                            [manager](const Entry& entry) { return entry.first == manager; });
            it = isListed ? m_known.erase(it) : std::next(it);
        }
        m_managers[manager] = std::make_unique<CDynModuleMgr>();
    }
    void ReBucket(int manager, int size)
    {
        ASSERT_EQ(IsEmpty(manager), m_managers[manager]->Initialize(size));
    }

    std::unique_ptr<CDynModuleMgr> m_managers[kManagers];
    std::map<int, Known> m_known;
    int m_made = 0;
    int m_ended = 0;
};

TEST(ModuleModel, AgreesAfterEveryStep)
{
    const int steps = RandomSteps(250000);
    Randoms random(kSeed);
    Modules modules;
    for (int step = 0; step < steps; ++step) {
        modules.Step(random);
        modules.Check();
        if (HasFatalFailure())
            FAIL() << "seed " << kSeed << ", step " << step;
    }
}

template <class Base>
class Counted : public Base
{
public:
    explicit Counted(int& living) : m_living(living) { ++m_living; }
    ~Counted() override { --m_living; }

private:
    int& m_living;
};

class Agency : public Counted<CServiceAgency>
{
public:
    using Counted::Counted;
    int DoService(int nCode, void* pData) override
    {
        *static_cast<void**>(pData) = this;
        return nCode;
    }
};

class Office : public CServiceHeadOffice
{
};

// An object and an office, from their making to their end.
class Parts
{
public:
    void Step(Randoms& random)
    {
        const std::string name = NameOf(random.Below(3 * kNames));
        switch (random.Below(3)) {
        case 0:
            return Offer(m_intfs, name, std::make_unique<Counted<CExtObjIntf>>(m_living),
                         [&](CExtObjIntf* part) { return m_object.AddIntf(name.c_str(), part); });
        case 1:
            return Offer(m_states, name, std::make_unique<Counted<CExtObjState>>(m_living),
                         [&](CExtObjState* part) { return m_object.AddState(name.c_str(), part); });
        default:
            return Offer(m_services, name, std::make_unique<Agency>(m_living),
                         [&](Agency* agency) { return m_office.RegAgency(name.c_str(), agency); });
        }
    }

    void Check()
    {
        for (int i = 0; i < 3 * kNames; ++i) {
            const std::string name = NameOf(i);
            CExtObjIntf* intf = m_object.GetIntf(name.c_str());
            ASSERT_EQ(m_intfs[name], intf);
            ASSERT_TRUE(!intf || intf->GetExtObj() == &m_object);
            ASSERT_EQ(m_states[name], m_object.GetState(name.c_str()));
            void* answering = nullptr;
            ASSERT_EQ(m_services[name] ? 1 : -1, m_office.ReqService(name.c_str(), 1, &answering));
            ASSERT_EQ(m_services[name], answering);
        }
    }

private:
    // Accepted where the name was free, and owned from then on; otherwise ended here.
    template <class T, class Part, class Add>
    static void Offer(std::map<std::string, T*>& known, const std::string& name, std::unique_ptr<Part> part,
                      Add add)
    {
        T*& place = known[name];
        ASSERT_EQ(place == nullptr, add(part.get()));
        if (!place)
            place = part.release();
    }

    int& m_living;
    std::map<std::string, CExtObjIntf*> m_intfs;
    std::map<std::string, CExtObjState*> m_states;
    std::map<std::string, Agency*> m_services;
    CExtObj m_object;
    Office m_office;

public:
    explicit Parts(int& living) : m_living(living) {}
};

void RunOne(Randoms& random, int steps)
{
    int living = 0;
    {
        Parts parts(living);
        for (int step = 0; step < steps && !testing::Test::HasFatalFailure(); ++step) {
            parts.Step(random);
            parts.Check();
        }
    }
    ASSERT_EQ(0, living);
}

TEST(PartModel, AgreesAfterEveryStep)
{
    const int steps = RandomSteps(250000);
    Randoms random(kSeed);
    for (int done = 0; done < steps;) {
        const int length = 1 + random.Below(200);
        RunOne(random, length);
        if (testing::Test::HasFatalFailure())
            FAIL() << "seed " << kSeed << ", after " << done;
        done += length;
    }
}

} // namespace

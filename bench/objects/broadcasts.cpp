#include "broadcasts.h"

#include "Timing.h"

#include <ZEK_lib.h>

#include <boost/signals2.hpp>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace {

class Adding : public CDBUpdateConnector
{
public:
    void OnUpdate(CView*, LPARAM lHint, CObject*) override { m_sum += lHint; }
    LPARAM m_sum = 0;
};

class Taking : public CDBUpdateConnector
{
public:
    void OnUpdate(CView*, LPARAM lHint, CObject*) override { m_sum -= lHint; }
    LPARAM m_sum = 0;
};

struct Pair {
    int position;
    int priority;
};

int ByPriority(const void* a, const void* b)
{
    const auto difference = static_cast<unsigned>(static_cast<const Pair*>(a)->priority) -
                            static_cast<unsigned>(static_cast<const Pair*>(b)->priority);
    return static_cast<int>(difference);
}

// The least there is: a loop over connectors that are in order already.
[[gnu::noinline]] void CallAll(const std::vector<CDBUpdateConnector*>& connectors)
{
    for (CDBUpdateConnector* connector : connectors)
        connector->OnUpdate(nullptr, 1, nullptr);
}

// The documented steps, done anew each time.
[[gnu::noinline]] void SortAndCallAll(const std::vector<CDBUpdateConnector*>& connectors)
{
    std::vector<Pair> pairs(connectors.size());
    for (std::size_t i = 0; i < pairs.size(); ++i)
        pairs[i] = {static_cast<int>(i), connectors[i]->GetPriority()};
    std::qsort(pairs.data(), pairs.size(), sizeof(Pair), &ByPriority);
    for (std::size_t i = pairs.size(); i-- > 0;)
        connectors[static_cast<std::size_t>(pairs[i].position)]->OnUpdate(nullptr, 1, nullptr);
}

} // namespace

void MeasureBroadcast(std::size_t count)
{
    Numbers numbers(7);
    std::vector<std::unique_ptr<CDBUpdateConnector>> owned;
    std::vector<CDBUpdateConnector*> listed;
    boost::signals2::signal<void(CView*, LPARAM, CObject*)> signal;
    for (std::size_t i = 0; i < count; ++i) {
        owned.push_back(i % 2 ? std::unique_ptr<CDBUpdateConnector>(new Adding)
                              : std::unique_ptr<CDBUpdateConnector>(new Taking));
        CDBUpdateConnector* connector = owned.back().get();
        connector->SetPriority(static_cast<int>(numbers.Next()) / 2);
        listed.push_back(connector);
        signal.connect(-connector->GetPriority(), [connector](CView* sender, LPARAM hint, CObject* object) {
            connector->OnUpdate(sender, hint, object);
        });
    }
    std::vector<CDBUpdateConnector*> ordered = listed;
    std::stable_sort(ordered.begin(), ordered.end(), [](CDBUpdateConnector* a, CDBUpdateConnector* b) {
        return a->GetPriority() > b->GetPriority();
    });
    int turn = 0;
    RunAndPrint("broadcast " + std::to_string(count),
                {Timed("library", [] { CNotifyCtrl::NotifyUpdate(nullptr, 1, nullptr); }),
                 Timed("loop, in order already", [&] { CallAll(ordered); }),
                 Timed("qsort each time", [&] { SortAndCallAll(listed); }),
                 Timed("boost::signals2, groups", [&] { signal(nullptr, 1, nullptr); }),
                 Timed("library, a priority changed",
                       [&] {
                           listed.front()->SetPriority(++turn % 2);
                           CNotifyCtrl::NotifyUpdate(nullptr, 1, nullptr);
                       })},
                count);
}

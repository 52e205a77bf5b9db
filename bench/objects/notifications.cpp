// What it costs to tell observers, and to broadcast to connectors with random priorities.
//
//   notifications
//
// For 1, 100 and 10,000 observers and connectors: the time for each of them, and its ratio to a bare loop of
// the same calls and to what other signals take.
#include "Timing.h"
#include "broadcasts.h"

#include <ZEK_lib.h>

#include <boost/signals2.hpp>
#include <sigc++/sigc++.h>

#include <functional>
#include <memory>

namespace {

class Adding : public DP_CObserver
{
public:
    void Update(DP_CSubject*, int nCode, void*) override { m_sum += nCode; }
    long m_sum = 0;
};

class Taking : public DP_CObserver
{
public:
    void Update(DP_CSubject*, int nCode, void*) override { m_sum -= nCode; }
    long m_sum = 0;
};

// The least there is, and no more inlined than the library's.
[[gnu::noinline]] void TellAll(const std::vector<DP_CObserver*>& observers, DP_CSubject* subject)
{
    for (DP_CObserver* observer : observers)
        observer->Update(subject, 1, nullptr);
}

void Count(void* user, DP_CSubject*, int code, void*)
{
    *static_cast<long*>(user) += code;
}

void MeasureNotify(std::size_t count)
{
    DP_CSubject subject;
    std::vector<std::unique_ptr<DP_CObserver>> owned;
    std::vector<DP_CObserver*> listed;
    sigc::signal<void, DP_CSubject*, int, void*> sigcSignal;
    boost::signals2::signal<void(DP_CSubject*, int, void*)> boostSignal;
    for (std::size_t i = 0; i < count; ++i) {
        owned.push_back(i % 2 ? std::unique_ptr<DP_CObserver>(new Adding)
                              : std::unique_ptr<DP_CObserver>(new Taking));
        DP_CObserver* observer = owned.back().get();
        listed.push_back(observer);
        observer->Observe(&subject);
        const auto tell = [observer](DP_CSubject* from, int code, void* data) {
            observer->Update(from, code, data);
        };
        sigcSignal.connect(tell);
        boostSignal.connect(tell);
    }
    // The notification as it is where nobody inlines either side.
    RunAndPrint("notify " + std::to_string(count),
                {Timed("library", [&] { subject.Notify(1, nullptr); }),
                 Timed("loop", [&] { TellAll(listed, &subject); }),
                 Timed("sigc::signal", [&] { sigcSignal.emit(&subject, 1, nullptr); }),
                 Timed("boost::signals2", [&] { boostSignal(&subject, 1, nullptr); })},
                count);
}

void MeasureCallbacks(std::size_t count)
{
    DP_CSubject subject;
    long sum = 0;
    std::vector<std::unique_ptr<CObserver>> owned;
    std::vector<std::function<void(DP_CSubject*, int, void*)>> functions;
    sigc::signal<void, DP_CSubject*, int, void*> sigcSignal;
    boost::signals2::signal<void(DP_CSubject*, int, void*)> boostSignal;
    const auto add = [&sum](DP_CSubject*, int code, void*) { sum += code; };
    for (std::size_t i = 0; i < count; ++i) {
        owned.push_back(std::make_unique<CObserver>());
        owned.back()->SetCallback(&Count, &sum);
        owned.back()->Observe(&subject);
        functions.emplace_back(add);
        sigcSignal.connect(add);
        boostSignal.connect(add);
    }
    RunAndPrint("callbacks " + std::to_string(count),
                {Timed("library", [&] { subject.Notify(1, nullptr); }),
                 Timed("std::function",
                       [&] {
                           for (const auto& function : functions)
                               function(&subject, 1, nullptr);
                       }),
                 Timed("sigc::signal", [&] { sigcSignal.emit(&subject, 1, nullptr); }),
                 Timed("boost::signals2", [&] { boostSignal(&subject, 1, nullptr); })},
                count);
}

} // namespace

int main()
{
    for (const std::size_t count : {1, 100, 10000})
        MeasureNotify(count);
    for (const std::size_t count : {1, 100, 10000})
        MeasureCallbacks(count);
    for (const std::size_t count : {1, 100, 1000, 10000})
        MeasureBroadcast(count);
}

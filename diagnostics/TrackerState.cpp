#include "TrackerState.h"

#include <Product.h>

#include <cstdlib>
#include <mbstring.h>

#include <MemoryLeakTester.h>

namespace {

constexpr const char* kTemplates = "afxtempl.h";

bool IsSameName(const char* a, const char* b)
{
    const auto* left = reinterpret_cast<const unsigned char*>(a);
    const auto* right = reinterpret_cast<const unsigned char*>(b);
    return _mbsicmp(left, right) == 0;
}

} // namespace

TrackerState::TrackerState(T_TRACKER_REST& rest) : m_watch("Software\\TOVEN\\TEST"), m_rest(rest)
{
    EndRest(); // of a tracker before this one
    CString templates(kTemplates);
    m_skipFiles.Add(templates);
    for (const char letter : {'a', 'A'})
        m_skipLetters[static_cast<unsigned char>(letter)] = true;
}

bool TrackerState::IsListed(const char* file) const
{
    for (int i = 0; i < m_skipFiles.GetSize(); ++i)
        if (IsSameName(m_skipFiles[i], file))
            return true;
    return false;
}

void TrackerState::AnnounceFile(const char* file)
{
    const TrackerEntry entry(lock);
    if (!entry)
        return;
    try {
        m_deleteFile = m_files.Name(m_files.Keep(file));
        m_lastGiven = file;
    } catch (...) { // out of memory: the debugger sees the last one
    }
}

// Reads the switches and acts on them. False when this call is not to track: because tracking is off, or the
// calling thread is reading them already.
bool TrackerState::Follow()
{
    std::unique_ptr<LeakReport> finished;
    {
        const TrackerEntry following(m_following);
        if (!following || m_isOff)
            return false;
        if (!IsSettled()) {
            m_watch.Prepare();
            try {
                const int period = std::atoi(CProduct::GetTestEnvValue("CheckMemoryNOP"));
                m_stopAt = static_cast<DWORD>(std::atoi(CProduct::GetTestEnvValue("CheckMemoryStopAt")));
                const TrackerEntry entry(lock);
                finished = ChangeTo(period);
                m_watch.Confirm();
                if (!IsEnabled())
                    BeginRest();
            } catch (CException* e) {
                e->Delete();
            } catch (...) { // out of memory: what was read last stands until the next call
            }
        }
    }
    if (finished)
        Write(*finished);
    return IsEnabled();
}

void TrackerState::BeginRest()
{
    EndRest();
    const RegistryCounters counters = m_watch.Counters();
    m_rest.registry = counters.registry;
    m_rest.environment = counters.environment;
    m_rest.environmentSeen = counters.environmentSeen;
    m_rest.registrySeen.store(counters.registrySeen, std::memory_order_release);
}

// The period's report, if one was tracked and another begins.
std::unique_ptr<LeakReport> TrackerState::ChangeTo(int period)
{
    const bool begins = period > m_lastSwitch;
    if (period == m_lastSwitch || (!begins && !IsEnabled()))
        return nullptr;
    auto finished = begins && IsEnabled() ? Report() : nullptr;
    m_enabled = begins;
    if (begins)
        m_lastSwitch = period;
    Reset();
    return finished;
}

void TrackerState::Reset()
{
    m_deleteFailures = m_counter = 0;
    m_live.Clear();
    m_displaced.clear();
    m_displaced.shrink_to_fit();
}

// Null when there is no memory for it.
std::unique_ptr<LeakReport> TrackerState::Report() const
{
    try {
        auto report = std::make_unique<LeakReport>();
        report->live = m_live.InOrder();
        report->displaced = m_displaced;
        report->deleteFailures = m_deleteFailures;
        report->files.reserve(m_files.Count());
        for (FileNames::Index i = 0; i < m_files.Count(); ++i)
            report->files.emplace_back(m_files.Name(i));
        return report;
    } catch (...) {
        return nullptr;
    }
}

void TrackerState::Write(const LeakReport& report)
{
    if (WriteLeakLog(report))
        return;
    m_isOff = true;
    m_enabled = 0;
}

void TrackerState::Log()
{
    std::unique_ptr<LeakReport> report;
    {
        const TrackerEntry entry(lock);
        if (entry)
            report = Report();
    }
    if (report)
        Write(*report);
}

// The place for a breakpoint that catches the allocation "CheckMemoryStopAt".
void TrackerState::Stop()
{
    CString("Leak Found!");
}

#include "TrackerState.h"

#include "LeakLog.h"

#include <cstring>
#include <mbstring.h>

#include <MemoryLeakTester.h>

namespace {

constexpr const char* kTemplates = "afxtempl.h";
constexpr std::uintptr_t kHeader = 16; // in front of a block

bool IsSameName(const char* a, const char* b)
{
    const auto* left = reinterpret_cast<const unsigned char*>(a);
    const auto* right = reinterpret_cast<const unsigned char*>(b);
    return _mbsicmp(left, right) == 0;
}

} // namespace

TrackerState::TrackerState()
{
    CString templates(kTemplates);
    skipFiles.Add(templates);
    for (const char letter : {'a', 'A'})
        skipLetters[static_cast<unsigned char>(letter)] = true;
}

bool TrackerState::IsListed(const char* file) const
{
    for (int i = 0; i < skipFiles.GetSize(); ++i)
        if (IsSameName(skipFiles[i], file))
            return true;
    return false;
}

void TrackerState::ReadSwitches()
{
    try {
        switches.Read();
    } catch (CException* e) {
        e->Delete();
    } catch (...) { // out of memory: the values read last stand until the next call
    }
}

bool TrackerState::Look()
{
    if (switches.Stand())
        return true;
    const TrackerEntry entry(readingLock);
    if (entry && !switches.Stand())
        ReadSwitches();
    return static_cast<bool>(entry);
}

int TrackerState::FollowSwitches()
{
    const int period = switches.Period();
    if (period != lastSwitch && ChangeTo(period))
        Reset();
    m_followed.store(period, std::memory_order_release); // after what it has changed
    return enabled;
}

// False when nothing begins or ends.
bool TrackerState::ChangeTo(int period)
{
    if (enabled && period > lastSwitch)
        WriteLeakLog(*this);
    if (period > lastSwitch && switches.HasPeriod())
        Start(period);
    else if (enabled)
        enabled = 0;
    else
        return false;
    return true;
}

void TrackerState::Start(int period)
{
    enabled = 1;
    lastSwitch = period;
}

void TrackerState::Reset()
{
    activeSize = displacedSize = totalSize = deleteFailures = counter = 0;
    live.Clear();
    displaced.clear();
    displaced.shrink_to_fit();
}

void TrackerState::Displace(const LiveRecord& record)
{
    displaced.push_back(record);
    displacedSize += record.size;
}

void TrackerState::Add(void* block, DWORD size, const char* file, int line)
{
    const FileNames::Index name = files.Keep(file);
    live.Reserve();
    LiveRecord& slot = live.Slot(block);
    if (slot.entry != 0)
        Displace(slot);
    ++counter;
    if (switches.StopAt() != 0 && static_cast<DWORD>(switches.StopAt()) == counter)
        CString("Leak Found!"); // the place for a breakpoint that catches this allocation
    current = {block, 0, counter, size, line, name};
    live.Put(slot, current);
}

bool TrackerState::Delete(void* block)
{
#ifdef __GNUC__
    // What free() is going to want.
    __builtin_prefetch(reinterpret_cast<void*>(reinterpret_cast<std::uintptr_t>(block) - kHeader));
#endif
    const LiveRecord* record = live.Find(block);
    if (!record)
        return false;
    current = *record;
    live.Remove(record);
    return true;
}

void TrackerState::AnnounceDelete(const char* file, int line)
{
    deleteFile = files.Name(files.Keep(file));
    deleteLine = line;
    m_lastGiven = file;
}

bool TrackerState::IsSameDeleteFile(const char* file, int line)
{
    if (!file || m_lastGiven.load(std::memory_order_relaxed) != file ||
        std::strcmp(deleteFile.load(std::memory_order_acquire), file) != 0)
        return false;
    if (busy.load(std::memory_order_relaxed) || !IsTracking())
        return false;
    deleteLine.store(line, std::memory_order_relaxed);
    return true;
}

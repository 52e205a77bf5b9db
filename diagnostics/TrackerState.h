// What the tracker knows.
//
// Two locks. `lock` is held for the moment that one record takes, and nothing else of the library is called
// under it: other threads wait for it wherever they free memory, under any lock of theirs. The lock of who
// follows the switches is held while they are read and acted on. Logs are written under neither.
#pragma once

#include "FileNames.h"
#include "LeakLog.h"
#include "LiveTable.h"
#include "TrackerLock.h"

#include <AllocMap.h>
#include <RegistryWatch.h>
#include <afxtempl.h>

#include <array>
#include <atomic>
#include <memory>
#include <vector>

class TrackerState
{
public:
    // Lets `rest` last while tracking is off.
    explicit TrackerState(T_TRACKER_REST& rest);
    ~TrackerState() { EndRest(); }
    TrackerState(const TrackerState&) = delete;
    TrackerState& operator=(const TrackerState&) = delete;

    TrackerLock lock;

    // ---- By any thread, without the lock ----

    // Whether a call that names this file may track. Follows the switches, unless the file is skipped.
    bool MayTrack(const char* file)
    {
        if (IsSettled())
            return IsEnabled() && !IsSkipped(file);
        return !IsSkipped(file) && Follow();
    }
    // The same for a call that names none.
    bool MayTrack() { return IsSettled() ? IsEnabled() : Follow(); }
    bool IsEnabled() const { return m_enabled.load(std::memory_order_relaxed) != 0; }
    // Nearly all names differ from the skipped ones in their first letter already.
    bool IsSkipped(const char* file) const
    {
        return file && m_skipLetters[static_cast<unsigned char>(*file)] && IsListed(file);
    }

    // Notes the place of the delete that follows. Only debuggers look at it, so the text of a file's name is
    // copied when its address is another than the last one's.
    void Announce(const char* file, int line)
    {
        m_deleteLine.store(line, std::memory_order_relaxed);
        if (m_lastGiven.load(std::memory_order_relaxed) != file)
            AnnounceFile(file);
    }

    // Writes the log of what is recorded now.
    void Log();

    // ---- By the lock's holder ----

    // Throws std::bad_alloc; nothing is recorded then.
    void Add(void* block, DWORD size, const char* file, int line)
    {
        const FileNames::Index name = m_files.Keep(file);
        m_live.Reserve();
        LiveRecord& slot = m_live.Slot(block);
        if (slot.entry != 0)
            m_displaced.push_back(slot);
        if (++m_counter == m_stopAt.load(std::memory_order_relaxed))
            Stop();
        m_current = {block, 0, m_counter, size, line, name};
        m_live.Put(slot, m_current);
    }
    // False when the block is not recorded.
    bool Delete(const void* block)
    {
        const LiveRecord* record = m_live.Find(block);
        if (!record)
            return false;
        m_current = *record;
        m_live.Remove(record);
        return true;
    }
    void CountFailure() { ++m_deleteFailures; }

private:
    bool IsSettled() const { return m_watch.Stands(); }
    bool IsListed(const char* file) const;
    void AnnounceFile(const char* file);
    bool Follow();
    void BeginRest();
    void EndRest() { m_rest.registrySeen.store(T_TRACKER_REST::kNever, std::memory_order_relaxed); }
    std::unique_ptr<LeakReport> ChangeTo(int period);
    std::unique_ptr<LeakReport> Report() const;
    void Write(const LeakReport& report);
    void Reset();
    static void Stop();

    LiveTable m_live;
    std::vector<LiveRecord> m_displaced; // pushed out of the table when their address came again
    CArray<CString, CString&> m_skipFiles;
    std::array<bool, 256> m_skipLetters = {}; // that one of them begins with
    DWORD m_deleteFailures = 0;
    DWORD m_counter = 0;
    int m_lastSwitch = 1;
    std::atomic<int> m_enabled = 0;
    LiveRecord m_current;              // the last one handled, for a debugger
    std::atomic<int> m_deleteLine = 0; // the last announced delete, for a debugger
    std::atomic<const char*> m_deleteFile = "";
    std::atomic<const char*> m_lastGiven = nullptr; // what m_deleteFile was copied from
    FileNames m_files;

    TrackerLock m_following; // of who follows the switches
    RegistryWatch m_watch;
    T_TRACKER_REST& m_rest;
    std::atomic<DWORD> m_stopAt = 0;   // 0: never
    std::atomic<bool> m_isOff = false; // for the rest of the process
};

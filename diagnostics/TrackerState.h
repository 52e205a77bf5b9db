// What the tracker knows. Everything but the lock and the two members marked so belongs to the lock's holder.
#pragma once

#include "FileNames.h"
#include "LiveTable.h"
#include "TrackerLock.h"
#include "TrackerSwitches.h"

#include <afxtempl.h>

#include <array>
#include <atomic>
#include <limits>
#include <vector>

class TrackerState
{
public:
    TrackerState();

    LiveTable live;
    std::vector<LiveRecord> displaced; // pushed out of the table when their address came again
    CArray<CString, CString&> skipFiles;
    std::array<bool, 256> skipLetters = {}; // that one of them begins with
    DWORD activeSize = 0;
    DWORD displacedSize = 0;
    DWORD totalSize = 0;
    DWORD deleteFailures = 0;
    DWORD counter = 0;
    int lastSwitch = 1;
    std::atomic<int> enabled = 0;    // readable by any thread
    std::atomic<int> busy = 0;       // likewise
    LiveRecord current;              // the last one handled, for a debugger
    std::atomic<int> deleteLine = 0; // the last announced delete, for a debugger
    std::atomic<const char*> deleteFile = "";

    TrackerLock lock;
    TrackerLock readingLock;  // of who reads the switches
    TrackerSwitches switches; // Stand() by any thread
    FileNames files;

    // True when there is nothing to do for a call: tracking is off and no switch can have changed.
    bool IsIdle() const { return IsSettled() && enabled.load(std::memory_order_relaxed) == 0; }
    // True when tracking is on and goes on.
    bool IsTracking() const { return IsSettled() && enabled.load(std::memory_order_relaxed) != 0; }
    // Nearly all names differ from the skipped ones in their first letter already.
    bool IsSkipped(const char* file) const
    {
        return file && skipLetters[static_cast<unsigned char>(*file)] && IsListed(file);
    }

    // Reads the switches if they may have changed, before the lock is taken: what reads them takes locks of
    // its own, under which blocks are freed. False when the calling thread is reading them already.
    bool Look();

    // AllocMap's members of these names, for the lock's holder.
    int CheckState()
    {
        if (busy.load(std::memory_order_relaxed))
            return 0;
        // The same period twice changes nothing.
        return switches.Period() == m_followed.load(std::memory_order_relaxed)
                   ? enabled.load(std::memory_order_relaxed)
                   : FollowSwitches();
    }
    void Add(void* block, DWORD size, const char* file, int line);
    bool Delete(void* block); // false when it is not recorded
    void AnnounceDelete(const char* file, int line);

    // Announces a delete in the file of the last one, while tracking goes on; else does nothing. By any
    // thread.
    bool IsSameDeleteFile(const char* file, int line);

private:
    bool IsSettled() const
    {
        return switches.Stand() && switches.Period() == m_followed.load(std::memory_order_acquire);
    }

    std::atomic<int> m_followed = std::numeric_limits<int>::min(); // the period that the state answers to
    std::atomic<const char*> m_lastGiven = nullptr;                // what deleteFile was copied from

    void Displace(const LiveRecord& record);
    bool IsListed(const char* file) const;
    int FollowSwitches();
    bool ChangeTo(int period);
    void ReadSwitches();
    void Start(int period);
    void Reset();
};

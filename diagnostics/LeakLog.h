// The tracker's log file.
#pragma once

#include "LiveTable.h"

#include <string>
#include <vector>

// What a log tells.
struct LeakReport {
    std::vector<LiveRecord> live; // in the order of the log
    std::vector<LiveRecord> displaced;
    DWORD deleteFailures = 0;
    std::vector<std::string> files; // by the records' numbers
};

// Writes "Temporary\memory leak.COUNT.log.nas" beside the executable. Failure is silent. False when the
// executable's path has no backslash: tracking ends then.
bool WriteLeakLog(const LeakReport& report);

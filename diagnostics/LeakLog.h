// The tracker's log file.
#pragma once

class TrackerState;

// Writes "Temporary\memory leak.COUNT.log.nas" beside the executable from what is recorded, counting the
// sizes first. Failure is silent. If the executable's path has no backslash, the state stays busy.
void WriteLeakLog(TrackerState& state);

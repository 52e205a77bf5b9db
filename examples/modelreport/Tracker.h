// The allocation tracker, in builds that ask for it (ZEK_TRACK_EXAMPLES). The last include of each source
// that allocates; it has no guard, as MemoryLeakTester.h has none.
#ifdef MODELREPORT_TRACKED
#include <MemoryLeakTester.h>
#endif

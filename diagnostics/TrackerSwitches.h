// The test values that drive the tracker, read again whenever the registry may have changed.
#pragma once

#include <RegistryWatch.h>

class TrackerSwitches
{
public:
    TrackerSwitches();

    // True while nothing that was read can have changed. From any thread.
    bool Stand() const { return m_watch.Stands(); }
    // Reads anew. From one thread at a time.
    void Read();

    int Period() const { return m_period; }
    bool HasPeriod() const { return m_hasPeriod; } // a text that is not empty
    int StopAt() const { return m_stopAt; }

private:
    RegistryWatch m_watch;
    int m_period = 0;
    bool m_hasPeriod = false;
    int m_stopAt = 0;
};

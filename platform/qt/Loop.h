// Waiting for the toolkit's events, and being woken.
#pragma once

#include <windows.h>

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <atomic>

class PeerEvents;

class Loop : public QObject
{
public:
    explicit Loop(PeerEvents& events);

    // These are WindowBackend's.
    void Wait(DWORD milliseconds);
    void Wake(); // any thread
    void WakeAfter(DWORD milliseconds);

    bool event(QEvent* event) override;

private:
    void Woken();

    PeerEvents& m_events;
    QTimer m_timer; // of WakeAfter
    std::atomic<bool> m_wakePending = false;
    bool m_waiting = false;
    int m_waitingLevel = 0; // of the toolkit's loops, when the innermost Wait began
};

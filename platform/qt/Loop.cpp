#include "Loop.h"

#include "Backend.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QCoreApplication>
#include <QtCore/QThread>

#include <algorithm>
#include <climits>
#include <utility>

namespace {

constexpr DWORD kNoEnd = 0xffffffff; // INFINITE

QEvent::Type WakeEvent()
{
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

int TimerLength(DWORD milliseconds)
{
    return static_cast<int>(std::min<DWORD>(milliseconds, INT_MAX));
}

} // namespace

Loop::Loop(PeerEvents& events) : m_events(events)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, [this] { Woken(); });
}

void Loop::Wait(DWORD milliseconds)
{
    const bool outerWaiting = std::exchange(m_waiting, true);
    const int outerLevel = std::exchange(m_waitingLevel, QThread::currentThread()->loopLevel());
    QTimer end;
    if (milliseconds != 0 && milliseconds != kNoEnd) {
        end.setTimerType(Qt::PreciseTimer);
        end.start(TimerLength(milliseconds)); // its event ends the wait
    }
    const auto flags = milliseconds ? QEventLoop::WaitForMoreEvents : QEventLoop::AllEvents;
    QAbstractEventDispatcher::instance()->processEvents(flags);
    m_waiting = outerWaiting;
    m_waitingLevel = outerLevel;
}

void Loop::Wake()
{
    if (!m_wakePending.exchange(true))
        QCoreApplication::postEvent(this, new QEvent(WakeEvent()), Qt::HighEventPriority);
}

void Loop::WakeAfter(DWORD milliseconds)
{
    if (milliseconds == kNoEnd)
        m_timer.stop();
    else
        m_timer.start(TimerLength(milliseconds));
}

bool Loop::event(QEvent* event)
{
    if (event->type() != WakeEvent())
        return QObject::event(event);
    m_wakePending = false;
    Woken();
    return true;
}

// Inside Wait it is enough to have had an event, unless a handler has started a loop of the toolkit there.
void Loop::Woken()
{
    if (!m_waiting || QThread::currentThread()->loopLevel() > m_waitingLevel)
        m_events.DispatchQueued();
}

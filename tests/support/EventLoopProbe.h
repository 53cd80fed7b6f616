#pragma once

#include <QElapsedTimer>
#include <QTimer>

namespace Zorvane::Testing {

// Counts the ticks of a short timer while it lives: an event loop that work
// blocks delivers about one, a live one about one per interval.
class EventLoopProbe
{
public:
    explicit EventLoopProbe(int intervalMs = 10) : m_interval(intervalMs)
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { ++m_ticks; });
        m_timer.start(intervalMs);
        m_elapsed.start();
    }

    // At least an eighth of the ticks that the time gone by allows.
    bool stayedLive() const
    {
        return m_ticks >= 2 && m_ticks * 8 * m_interval >= m_elapsed.elapsed();
    }

private:
    int m_interval;
    int m_ticks = 0;
    QTimer m_timer;
    QElapsedTimer m_elapsed;
};

} // namespace Zorvane::Testing

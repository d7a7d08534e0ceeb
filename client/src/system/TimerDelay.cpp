#include "system/TimerDelay.h"

#include <utility>

TimerDelay::TimerDelay()
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer); // the other types may fire early
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
        if (!m_end.hasExpired()) { // even a precise timer may fire a fraction of a millisecond early
            m_timer.start(1);
            return;
        }
        const std::function<void()> shot = std::exchange(m_shot, nullptr);
        if (shot) {
            shot();
        }
    });
}

void TimerDelay::Start(int milliseconds, std::function<void()> shot)
{
    m_shot = std::move(shot);
    m_end = QDeadlineTimer(milliseconds, Qt::PreciseTimer);
    m_timer.start(milliseconds);
}

void TimerDelay::Stop()
{
    m_timer.stop();
    m_shot = nullptr;
}

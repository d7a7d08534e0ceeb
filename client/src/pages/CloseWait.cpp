#include "pages/CloseWait.h"

#include <utility>

CloseWait::CloseWait(std::function<bool()> isUserAsked, int tick, QObject* parent)
    : QObject(parent), m_isUserAsked(std::move(isUserAsked))
{
    m_timer.setInterval(tick);
    connect(&m_timer, &QTimer::timeout, this, &CloseWait::HandleTick);
}

bool CloseWait::IsRunning() const
{
    return m_timer.isActive();
}

void CloseWait::Begin()
{
    m_ticks = 0;
    m_timer.start();
}

void CloseWait::End()
{
    m_timer.stop();
}

void CloseWait::HandleTick()
{
    m_ticks = m_isUserAsked() ? 0 : m_ticks + 1;
    if (m_ticks < Ticks) {
        return;
    }
    End();
    Q_EMIT SigExpired();
}

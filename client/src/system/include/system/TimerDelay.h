#pragma once

#include "system/IDelay.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QTimer>

/// A delay in real time, never shorter than requested.
class TimerDelay final : public IDelay
{
public:
    TimerDelay();

    void Start(int milliseconds, std::function<void()> shot) override;
    void Stop() override;

private:
    QTimer m_timer;
    QDeadlineTimer m_end;
    std::function<void()> m_shot;
};

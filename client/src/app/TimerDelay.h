#pragma once

#include "app/IDelay.h"

#include <QtCore/QTimer>

/// A delay in real time.
class TimerDelay final : public IDelay
{
public:
    TimerDelay();

    void Start(int milliseconds, std::function<void()> shot) override;
    void Stop() override;

private:
    QTimer m_timer;
    std::function<void()> m_shot;
};

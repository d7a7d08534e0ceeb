#pragma once

#include <QtCore/qglobal.h>

#include <functional>

/// Calls a function once after some time. Tests replace it to control the clock.
class IDelay
{
public:
    virtual ~IDelay() = default;

    /// Runs `shot` once after `milliseconds`, in place of a shot that is still waiting.
    virtual void Start(int milliseconds, std::function<void()> shot) = 0;
    virtual void Stop() = 0;

protected:
    IDelay() = default;
    Q_DISABLE_COPY(IDelay)
};

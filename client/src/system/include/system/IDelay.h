#pragma once

#include <QtCore/qglobal.h>

#include <functional>

/// A single shot after some time; a test puts its own clock behind it.
class IDelay
{
public:
    virtual ~IDelay() = default;

    /// Runs `shot` once after `milliseconds`; a shot that still waits is replaced.
    virtual void Start(int milliseconds, std::function<void()> shot) = 0;
    virtual void Stop() = 0;

protected:
    IDelay() = default;
    Q_DISABLE_COPY(IDelay)
};

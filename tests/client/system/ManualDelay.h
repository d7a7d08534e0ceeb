#pragma once

#include "system/IDelay.h"

#include <utility>

/// A delay that ends when the test says so.
class ManualDelay final : public IDelay
{
public:
    void Start(int milliseconds, std::function<void()> shot) override
    {
        ++m_starts;
        m_milliseconds = milliseconds;
        m_shot = std::move(shot);
    }
    void Stop() override
    {
        m_milliseconds = -1;
        m_shot = nullptr;
    }

    /// The running delay [ms]; -1 when none runs.
    int GetPause() const { return m_milliseconds; }
    int CountStarts() const { return m_starts; }
    void Fire()
    {
        m_milliseconds = -1;
        std::exchange(m_shot, nullptr)();
    }

private:
    std::function<void()> m_shot;
    int m_milliseconds = -1;
    int m_starts = 0;
};

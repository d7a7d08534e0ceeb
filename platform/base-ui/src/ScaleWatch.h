#pragma once

#include "base/IDpiAdapter.h"

#include <functional>

/// Calls back after the scale changed; for widgets that derive from a widget of Qt alone.
class ScaleWatch final : public IDpiAdapter
{
public:
    explicit ScaleWatch(std::function<void()> adjust);
    ~ScaleWatch() override;

    void AdjustForDpi() override;

private:
    std::function<void()> m_adjust;
};

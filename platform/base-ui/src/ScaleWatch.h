#pragma once

#include <functional>
#include <utility>

/// Calls back when the user chose another scale.
class ScaleWatch final
{
public:
    explicit ScaleWatch(std::function<void()> adjust) : m_adjust(std::move(adjust)) {}

    void AdjustForDpi() { m_adjust(); }

private:
    std::function<void()> m_adjust;
};

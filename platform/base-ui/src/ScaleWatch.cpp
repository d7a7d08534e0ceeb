#include "ScaleWatch.h"

#include <utility>

ScaleWatch::ScaleWatch(std::function<void()> adjust) : m_adjust(std::move(adjust)) {}

ScaleWatch::~ScaleWatch() = default;

void ScaleWatch::AdjustForDpi()
{
    m_adjust();
}

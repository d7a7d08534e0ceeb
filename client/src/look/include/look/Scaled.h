#pragma once

#include "base/DpiTool.h"

#include <QtCore/QMargins>
#include <QtCore/QSize>

/// Converts [px, unscaled] to [px] at the current scale.
inline int Scaled(int pixels)
{
    return DpiTool::ScaleDefault(pixels);
}

inline QSize Scaled(const QSize& size)
{
    return {Scaled(size.width()), Scaled(size.height())};
}

inline QMargins Scaled(const QMargins& margins)
{
    return {Scaled(margins.left()), Scaled(margins.top()), Scaled(margins.right()), Scaled(margins.bottom())};
}

/// A square with this side.
inline QSize ScaledSquare(int pixels)
{
    return {Scaled(pixels), Scaled(pixels)};
}

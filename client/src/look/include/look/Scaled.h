#pragma once

#include "base/DpiTool.h"

#include <QtCore/QMargins>
#include <QtCore/QSize>

/// [px, unscaled] to [px] at the present scale.
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

/// A square of such a side.
inline QSize ScaledSquare(int pixels)
{
    return {Scaled(pixels), Scaled(pixels)};
}

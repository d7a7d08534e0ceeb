#pragma once

#include "base/DpiTool.h"

#include <QtCore/QSize>

/// [px, unscaled] to [px] at the present scale.
inline int Scaled(int pixels)
{
    return DpiTool::ScaleDefault(pixels);
}

/// A square of such a side.
inline QSize ScaledSquare(int pixels)
{
    return {Scaled(pixels), Scaled(pixels)};
}

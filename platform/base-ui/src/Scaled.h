#pragma once

#include "base/DpiTool.h"

/// [px, unscaled] to [px] at the current scale.
inline int Scaled(int pixels)
{
    return DpiTool::ScaleDefault(pixels);
}

#pragma once

/// [px, unscaled] to [px] at the scale that is chosen now.
inline int Scaled(int pixels)
{
    return pixels;
}

#pragma once

/// Where the pointer of a `TLBubbleLabel` is, as numbers that modules pass.
namespace BubbleDirection {
inline constexpr int Up = 0;   ///< at the top: the bubble hangs below its control
inline constexpr int Down = 1; ///< at the bottom: the bubble stands above its control
} // namespace BubbleDirection

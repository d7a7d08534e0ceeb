#pragma once

/// The frame of a `TLBaseDialog`, as numbers that modules pass.
namespace TitleType {
inline constexpr int System = 0;     ///< the window system's frame
inline constexpr int TitleBar = 1;   ///< our own title bar, with a close button if the flags say so
inline constexpr int Borderless = 2; ///< only a border, for a dialog that needs no title
} // namespace TitleType

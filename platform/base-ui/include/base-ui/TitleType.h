#pragma once

/// The frame of a `TLBaseDialog`, as numbers that modules pass.
namespace TitleType {
inline constexpr int System = 0; ///< the frame of the window system
inline constexpr int TitleBar =
    1; ///< our own bar with the title, and a button to close when the flags have one
inline constexpr int Borderless = 2; ///< a border alone, for a dialog that needs no title
} // namespace TitleType

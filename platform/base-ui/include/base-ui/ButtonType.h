#pragma once

/// How a `TLPushButton` looks, as numbers that modules pass.
namespace ButtonType {
inline constexpr int Default = 0;   ///< an outline on the background
inline constexpr int Primary = 1;   ///< the dialog's main action, filled with the accent colour
inline constexpr int Plain = 2;     ///< no frame until the mouse is over the button
inline constexpr int Secondary = 3; ///< stands beside a primary button: cancel, no, close
} // namespace ButtonType

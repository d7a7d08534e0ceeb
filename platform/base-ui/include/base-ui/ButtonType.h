#pragma once

/// How a `TLPushButton` looks, as numbers that modules pass.
namespace ButtonType {
inline constexpr int Default = 0;   ///< an outline on the background
inline constexpr int Primary = 1;   ///< the one action that a dialog is there for, filled with the accent
inline constexpr int Plain = 2;     ///< no frame until the mouse is over it
inline constexpr int Secondary = 3; ///< stands beside a primary button: cancel, no, close
} // namespace ButtonType

#pragma once

/// What the list of a `TLComboBox` is made for, as numbers that modules pass.
namespace ComboBusiness {
inline constexpr int Plain = 0; ///< short texts
inline constexpr int Apps = 1;  ///< names with icons: higher rows, names that are cut off have a tool tip
} // namespace ComboBusiness

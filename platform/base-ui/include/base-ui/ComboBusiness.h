#pragma once

/// What the list of a `TLComboBox` holds, as numbers that modules pass.
namespace ComboBusiness {
inline constexpr int Plain = 0; ///< short texts
inline constexpr int Apps = 1;  ///< names with icons: taller rows, tool tips for names that are cut off
} // namespace ComboBusiness

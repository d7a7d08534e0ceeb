#pragma once

/// What a `TLToast` tells, as numbers that modules pass.
namespace ToastType {
inline constexpr int Information = 0;
inline constexpr int Success = 1;
inline constexpr int Warning = 2; ///< what the user wanted was not done
inline constexpr int Error = 3;
} // namespace ToastType

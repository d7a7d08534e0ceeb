#pragma once

/// What kind of message a `TLToast` shows, as numbers that modules pass.
namespace ToastType {
inline constexpr int Information = 0;
inline constexpr int Success = 1;
inline constexpr int Warning = 2; ///< the client did not do what the user wanted
inline constexpr int Error = 3;
} // namespace ToastType

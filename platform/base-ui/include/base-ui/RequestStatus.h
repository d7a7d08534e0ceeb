#pragma once

/// What a `RequestStatusBaseWidget` shows, as numbers that modules pass.
namespace RequestStatus {
inline constexpr int Loading = 0;
inline constexpr int Failed = 1;    ///< with a button to try again
inline constexpr int Succeeded = 2; ///< the content
} // namespace RequestStatus

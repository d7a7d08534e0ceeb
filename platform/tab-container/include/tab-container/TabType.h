#pragma once

/// The kinds of tab, as numbers that are stored and sent.
namespace TabType {
inline constexpr int Home = 1;
inline constexpr int WebPage = 3;
inline constexpr int WebApp = 4;
inline constexpr int NativeApp = 5;
} // namespace TabType

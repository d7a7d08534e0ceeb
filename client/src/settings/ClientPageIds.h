#pragma once

#include "frame-core/SettingWidgetId.h"

/// The client's own settings pages. Modules have the groups from 10 to 89.
namespace ClientPageIds {

inline constexpr SettingWidgetId appearance(1, 10);
inline constexpr SettingWidgetId language(1, 20);
inline constexpr SettingWidgetId privacy(90, 10);
inline constexpr SettingWidgetId monitoring(90, 20);
inline constexpr SettingWidgetId about(100, 10);

} // namespace ClientPageIds

#pragma once

#include "frame-core/SettingWidgetId.h"

/// The client's own settings pages. Modules have the groups from 10 to 89.
namespace ClientPageIds {

inline constexpr SettingWidgetId Appearance(1, 10);
inline constexpr SettingWidgetId Language(1, 20);
inline constexpr SettingWidgetId Privacy(90, 10);
inline constexpr SettingWidgetId Monitoring(90, 20);
inline constexpr SettingWidgetId About(100, 10);

} // namespace ClientPageIds

#pragma once

#include "frame-core/SettingWidgetId.h"

#include <QtCore/QString>

class ISysSettingFactory;

/// A page that can be shown, and who makes it.
struct SettingsPageEntry
{
    ISysSettingFactory* factory = nullptr;
    SettingWidgetId id;
    int groupOrder = 0;
    bool own = false; ///< of the client itself: follows language, scale and search while it is shown
};

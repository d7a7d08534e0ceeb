#pragma once

#include "settings/SettingsPageEntry.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

/// Names and icons under which the pages stand in the list. Modules give theirs no name; those of modules
/// that the client is delivered with are known here by their ids.
class SettingsPageFaces final
{
    Q_DECLARE_TR_FUNCTIONS(SettingsPageFaces)

public:
    SettingsPageFaces() = delete;

    /// In the current language. An unknown page is called by its first search word.
    static QString GetTitle(const SettingsPageEntry& entry);
    /// As `SymbolicIcon` takes it.
    static QString GetIcon(SettingWidgetId id);
};

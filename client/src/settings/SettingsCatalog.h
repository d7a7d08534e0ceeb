#pragma once

#include "settings/SettingsPageEntry.h"

#include <QtCore/QVector>

/// The pages that the factories have now, in the order of the list.
namespace SettingsCatalog {

/// By group, in it by place; a group that a factory adds stands where its order says. `own` is the client's
/// own factory, one of `factories`. Of two pages with one id the first factory's counts.
QVector<SettingsPageEntry> Build(const QVector<ISysSettingFactory*>& factories,
                                 const ISysSettingFactory* own);

/// Whether the page is found under `word`, in any case: by its name in the list or by a search word. An empty
/// word finds every page.
bool IsFound(const SettingsPageEntry& entry, const QString& word);

} // namespace SettingsCatalog

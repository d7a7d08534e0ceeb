#include "SettingsPageFaces.h"

#include "ClientPageIds.h"

#include "frame-core/ISysSettingFactory.h"

namespace {

constexpr SettingWidgetId openingAtStart(10, 60);

} // namespace

QString SettingsPageFaces::GetTitle(const SettingsPageEntry& entry)
{
    if (entry.id == ClientPageIds::appearance) {
        return tr("Appearance");
    }
    if (entry.id == ClientPageIds::language) {
        return tr("Language");
    }
    if (entry.id == openingAtStart) {
        return tr("Opening at start");
    }
    if (entry.id == ClientPageIds::privacy) {
        return tr("Privacy");
    }
    if (entry.id == ClientPageIds::monitoring) {
        return tr("Monitoring");
    }
    if (entry.id == ClientPageIds::about) {
        return tr("About");
    }
    const QString word = entry.factory->GetSearchKeywords(entry.id).value(0);
    return word.isEmpty() ? tr("More settings") : word;
}

QString SettingsPageFaces::GetIcon(SettingWidgetId id)
{
    if (id == ClientPageIds::appearance) {
        return QStringLiteral("appearance");
    }
    if (id == ClientPageIds::language) {
        return QStringLiteral("globe");
    }
    if (id == openingAtStart) {
        return QStringLiteral("start");
    }
    if (id == ClientPageIds::privacy) {
        return QStringLiteral("lock");
    }
    if (id == ClientPageIds::monitoring) {
        return QStringLiteral("activity");
    }
    if (id == ClientPageIds::about) {
        return QStringLiteral("info");
    }
    return QStringLiteral("app");
}

#include "SettingsPageFaces.h"

#include "ClientPageIds.h"

#include "frame-core/ISysSettingFactory.h"

namespace {

constexpr SettingWidgetId OpeningAtStart(10, 60);

} // namespace

QString SettingsPageFaces::GetTitle(const SettingsPageEntry& entry)
{
    if (entry.id == ClientPageIds::Appearance) {
        return tr("Appearance");
    }
    if (entry.id == ClientPageIds::Language) {
        return tr("Language");
    }
    if (entry.id == OpeningAtStart) {
        return tr("Opening at start");
    }
    if (entry.id == ClientPageIds::Privacy) {
        return tr("Privacy");
    }
    if (entry.id == ClientPageIds::Monitoring) {
        return tr("Monitoring");
    }
    if (entry.id == ClientPageIds::About) {
        return tr("About");
    }
    const QString word = entry.factory->GetSearchKeywords(entry.id).value(0);
    return word.isEmpty() ? tr("More settings") : word;
}

QString SettingsPageFaces::GetIcon(SettingWidgetId id)
{
    if (id == ClientPageIds::Appearance) {
        return QStringLiteral("appearance");
    }
    if (id == ClientPageIds::Language) {
        return QStringLiteral("globe");
    }
    if (id == OpeningAtStart) {
        return QStringLiteral("start");
    }
    if (id == ClientPageIds::Privacy) {
        return QStringLiteral("lock");
    }
    if (id == ClientPageIds::Monitoring) {
        return QStringLiteral("activity");
    }
    if (id == ClientPageIds::About) {
        return QStringLiteral("info");
    }
    return QStringLiteral("app");
}

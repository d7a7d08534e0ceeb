#include "SettingsCatalog.h"

#include "SettingsPageFaces.h"

#include "frame-core/ISysSettingFactory.h"

#include <QtCore/QHash>

#include <algorithm>
#include <tuple>

QVector<SettingsPageEntry> SettingsCatalog::Build(const QVector<ISysSettingFactory*>& factories,
                                                  const ISysSettingFactory* own)
{
    QHash<int, int> groupOrders;
    for (ISysSettingFactory* const factory : factories) {
        const SettingGroup group = factory->GetSettingGroup();
        if (group.id != 0) {
            groupOrders.insert(group.id, group.order);
        }
    }
    QVector<SettingsPageEntry> entries;
    for (ISysSettingFactory* const factory : factories) {
        const QList<SettingWidgetId> ids = factory->GetSettingWidgetIds();
        for (const SettingWidgetId id : ids) {
            const bool known = std::any_of(entries.cbegin(), entries.cend(),
                                           [id](const SettingsPageEntry& entry) { return entry.id == id; });
            if (!known) {
                entries.append(
                    {factory, id, groupOrders.value(id.GetGroup(), id.GetGroup()), factory == own});
            }
        }
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const SettingsPageEntry& a, const SettingsPageEntry& b) {
                         return std::make_tuple(a.groupOrder, a.id.GetGroup(), a.id.GetOrder()) <
                                std::make_tuple(b.groupOrder, b.id.GetGroup(), b.id.GetOrder());
                     });
    return entries;
}

bool SettingsCatalog::IsFound(const SettingsPageEntry& entry, const QString& word)
{
    if (word.isEmpty() || SettingsPageFaces::GetTitle(entry).contains(word, Qt::CaseInsensitive)) {
        return true;
    }
    const QStringList words = entry.factory->GetSearchKeywords(entry.id);
    return std::any_of(words.cbegin(), words.cend(), [&word](const QString& candidate) {
        return candidate.contains(word, Qt::CaseInsensitive);
    });
}

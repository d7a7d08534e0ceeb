#include "HandWrittenConfiguration.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace {

QVector<HandWrittenConfiguration::Entry> ReadEntries(const QJsonArray& array)
{
    QVector<HandWrittenConfiguration::Entry> entries;
    entries.reserve(array.size());
    for (const QJsonValue& value : array) {
        const QJsonObject object = value.toObject();
        HandWrittenConfiguration::Entry entry;
        entry.itemId = object.value(QLatin1String("itemId")).toString();
        entry.name = object.value(QLatin1String("name")).toString();
        entry.url = object.value(QLatin1String("url")).toString();
        entry.systemItem = object.value(QLatin1String("systemItem")).toBool();
        entry.checked = object.value(QLatin1String("checked")).toBool();
        entry.activeItem = object.value(QLatin1String("activeItem")).toBool();
        entry.type = object.value(QLatin1String("type")).toInt();
        entries.append(entry);
    }
    return entries;
}

QJsonArray WriteEntries(const QVector<HandWrittenConfiguration::Entry>& entries)
{
    QJsonArray array;
    for (const HandWrittenConfiguration::Entry& entry : entries) {
        array.append(QJsonObject{{QStringLiteral("activeItem"), entry.activeItem},
                                 {QStringLiteral("checked"), entry.checked},
                                 {QStringLiteral("itemId"), entry.itemId},
                                 {QStringLiteral("name"), entry.name},
                                 {QStringLiteral("systemItem"), entry.systemItem},
                                 {QStringLiteral("type"), entry.type},
                                 {QStringLiteral("url"), entry.url}});
    }
    return array;
}

} // namespace

bool HandWrittenConfiguration::Parse(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject()) {
        return false;
    }
    const QJsonObject object = document.object();
    systemItems = ReadEntries(object.value(QLatin1String("systemItems")).toArray());
    customItems = ReadEntries(object.value(QLatin1String("customItems")).toArray());
    pluginItems = ReadEntries(object.value(QLatin1String("pluginItems")).toArray());
    return true;
}

QByteArray HandWrittenConfiguration::ToJson() const
{
    const QJsonObject object{{QStringLiteral("customItems"), WriteEntries(customItems)},
                             {QStringLiteral("pluginItems"), WriteEntries(pluginItems)},
                             {QStringLiteral("systemItems"), WriteEntries(systemItems)}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

#include "AutoRunCollectionEntity.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QJsonValue>

namespace {

void ReadEntries(const QJsonArray& array, QList<AutoRunInfoEntityPtr>& entries)
{
    entries.clear();
    entries.reserve(array.size());
    for (const QJsonValue& element : array) {
        const AutoRunInfoEntityPtr entry = AutoRunInfoEntityPtr::create();
        entry->Parse(QJsonDocument(element.toObject()));
        entries.append(entry);
    }
}

QJsonArray WriteEntries(const QList<AutoRunInfoEntityPtr>& entries)
{
    QJsonArray array;
    for (const AutoRunInfoEntityPtr& entry : entries) {
        if (entry) {
            array.append(entry->ToJsonObject());
        }
    }
    return array;
}

/// The member that holds the list of a JSON key; null for a key without a list.
auto ListOf(const QString& key) -> QList<AutoRunInfoEntityPtr> AutoRunCollectionEntity::*
{
    if (key == QLatin1String("systemItems")) {
        return &AutoRunCollectionEntity::systemItems;
    }
    if (key == QLatin1String("customItems")) {
        return &AutoRunCollectionEntity::customItems;
    }
    if (key == QLatin1String("pluginItems")) {
        return &AutoRunCollectionEntity::pluginItems;
    }
    return nullptr;
}

} // namespace

AutoRunCollectionEntity::AutoRunCollectionEntity(QObject* parent) : VXJsonParserBase(parent) {}

bool AutoRunCollectionEntity::ParseSpecial(const QString& key, const QJsonValue& value)
{
    const auto list = ListOf(key);
    if (!list) {
        return false;
    }
    ReadEntries(value.toArray(), this->*list);
    return true;
}

bool AutoRunCollectionEntity::ToSpecial(const QString& key, QJsonValue& value) const
{
    const auto list = ListOf(key);
    if (!list) {
        return false;
    }
    value = WriteEntries(this->*list);
    return true;
}

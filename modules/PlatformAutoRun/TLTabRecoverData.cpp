#include "TLTabRecoverData.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QJsonValue>

namespace {

QLatin1String ItemsKey()
{
    return QLatin1String("tabRecoverItems");
}

} // namespace

TLTabRecoverData::TLTabRecoverData(QObject* parent) : VXJsonParserBase(parent) {}

TLTabRecoverData::~TLTabRecoverData() = default;

bool TLTabRecoverData::ParseSpecial(const QString& key, const QJsonValue& value)
{
    if (key != ItemsKey()) {
        return false;
    }
    const QJsonArray array = value.toArray();
    tabRecoverItems.clear();
    tabRecoverItems.reserve(array.size());
    for (const QJsonValue& element : array) {
        TabRecoverItem item;
        item.Parse(QJsonDocument(element.toObject()));
        tabRecoverItems.append(item);
    }
    return true;
}

bool TLTabRecoverData::ToSpecial(const QString& key, QJsonValue& value) const
{
    if (key != ItemsKey()) {
        return false;
    }
    QJsonArray array;
    for (const TabRecoverItem& item : tabRecoverItems) {
        array.append(item.ToJsonObject());
    }
    value = array;
    return true;
}

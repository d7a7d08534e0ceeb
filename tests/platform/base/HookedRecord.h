#pragma once

#include "base/VXJsonParserBase.h"

#include <QtCore/QJsonArray>

/// Handles one field by its own hooks, keeps another out of the JSON, and remembers what it was offered.
class HookedRecord final : public VXJsonParserBase
{
    Q_OBJECT
    Q_PROPERTY(QString plain MEMBER plain)
    Q_PROPERTY(QVariantList handled MEMBER handled)
    Q_PROPERTY(int secret MEMBER secret)

public:
    QString plain;
    QVariantList handled;
    int secret = 3;
    QStringList errors;

    QStringList offeredToParse;
    mutable QStringList offeredToWrite;

protected:
    bool ParseSpecial(const QString& key, const QJsonValue& value) override
    {
        offeredToParse.append(key);
        if (key != QLatin1String("handled")) {
            return false;
        }
        handled = value.toArray().toVariantList();
        return true;
    }
    bool ToSpecial(const QString& key, QJsonValue& value) const override
    {
        offeredToWrite.append(key);
        if (key != QLatin1String("handled")) {
            return false;
        }
        value = QJsonArray::fromVariantList(handled);
        return true;
    }
    bool JoinToJson(const QString& key) const override { return key != QLatin1String("secret"); }
    QStringList GetParseErrorSpecial() const override { return errors; }
};

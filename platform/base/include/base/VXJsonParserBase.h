#pragma once

#include "base/BaseExport.h"

#include <QtCore/QByteArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QJsonValue>
#include <QtCore/QObject>
#include <QtCore/QStringList>

/// Base of the records that travel as JSON. A record declares its fields as Qt properties; the property's
/// name is the JSON key. Each declared property of the dynamic class (`objectName` is not one of them) is
/// first offered to the hooks and then handled by its type: QString, bool, int, double, qint64, QStringList.
/// The JSON leaves out a property of another type that no hook handles, and a parse leaves it alone.
///
/// Not thread-safe as an object; different objects may be used on different threads.
class TL_BASE_EXPORT VXJsonParserBase : public QObject
{
    Q_OBJECT

public:
    explicit VXJsonParserBase(QObject* parent = nullptr);
    /// Copies the parse errors only: the copy is a QObject of its own, without parent, connections and name.
    VXJsonParserBase(const VXJsonParserBase& other);
    VXJsonParserBase& operator=(const VXJsonParserBase& other);
    ~VXJsonParserBase() override;

    /// Fills the declared properties from JSON. A missing key leaves the value alone. So does a value of the
    /// wrong type, a fraction for an integer, or a number out of the property's range; each of these adds one
    /// line to `GetParseError()`. Text that is not JSON, or not an object, is one parse error. True when this
    /// parse met no problem.
    bool Parse(const QJsonDocument& document);
    bool Parse(const QJsonObject& object);
    bool Parse(const QByteArray& json);

    /// The record as a JSON object, its keys sorted.
    QJsonObject ToJsonObject() const;
    /// The record as compact JSON text in UTF-8.
    QByteArray ToJson() const;

    /// The problems of the last `Parse`, one line each, naming the key, the wanted and the found type. Empty
    /// when there were none.
    QStringList GetParseError() const;

protected:
    /// Called for every declared property whose key the JSON has. Returns true when it handled the key.
    /// Handles nothing by default.
    virtual bool ParseSpecial(const QString& key, const QJsonValue& value);
    /// Called for every declared property. Returns true when `value` holds what to write under the key.
    /// Handles nothing by default.
    virtual bool ToSpecial(const QString& key, QJsonValue& value) const;
    /// Called for every declared property that `ToSpecial` did not handle. False leaves the key out of the
    /// JSON; writes every key by default.
    virtual bool JoinToJson(const QString& key) const;
    /// Parse errors of the derived class, added after the base's own. Empty by default.
    virtual QStringList GetParseErrorSpecial() const;

private:
    QStringList m_parseErrors;
};

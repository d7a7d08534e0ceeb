#include "base/VXJsonParserBase.h"

#include <QtCore/QHash>
#include <QtCore/QJsonArray>
#include <QtCore/QMetaProperty>
#include <QtCore/QSharedPointer>
#include <QtCore/QVector>

#include <cmath>
#include <limits>
#include <mutex>
#include <shared_mutex>

namespace {

enum class FieldType
{
    String,
    Bool,
    Int,
    Double,
    LongLong,
    StringList,
    Other,
};

struct Field
{
    QString key;
    QMetaProperty property;
    FieldType type;
};

struct FieldTable
{
    // Tells the class from another one whose meta-object lies at the same address, after the plug-in of the
    // first was unloaded.
    const void* strings;
    const void* data;
    QVector<Field> fields;
};

using FieldTablePtr = QSharedPointer<const FieldTable>;

FieldType TypeOf(const QMetaProperty& property)
{
    if (property.isEnumType()) {
        return FieldType::Other;
    }
    switch (property.userType()) {
    case QMetaType::QString:
        return FieldType::String;
    case QMetaType::Bool:
        return FieldType::Bool;
    case QMetaType::Int:
        return FieldType::Int;
    case QMetaType::Double:
        return FieldType::Double;
    case QMetaType::LongLong:
        return FieldType::LongLong;
    case QMetaType::QStringList:
        return FieldType::StringList;
    default:
        return FieldType::Other;
    }
}

FieldTablePtr ReadFieldTable(const QMetaObject* metaObject)
{
    auto table = QSharedPointer<FieldTable>::create();
    table->strings = metaObject->d.stringdata;
    table->data = metaObject->d.data;
    // The record does not declare objectName, QObject's own property.
    for (int i = QObject::staticMetaObject.propertyCount(); i < metaObject->propertyCount(); ++i) {
        const QMetaProperty property = metaObject->property(i);
        const bool redeclaredFurtherDown = metaObject->indexOfProperty(property.name()) != i;
        if (!redeclaredFurtherDown) {
            table->fields.append({QString::fromLatin1(property.name()), property, TypeOf(property)});
        }
    }
    return table;
}

FieldTablePtr FieldTableOf(const QMetaObject* metaObject)
{
    static std::shared_mutex mutex;
    static QHash<const QMetaObject*, FieldTablePtr> tables;
    {
        const std::shared_lock<std::shared_mutex> lock(mutex);
        FieldTablePtr table = tables.value(metaObject);
        if (table && table->strings == metaObject->d.stringdata && table->data == metaObject->d.data) {
            return table;
        }
    }
    FieldTablePtr table = ReadFieldTable(metaObject);
    const std::unique_lock<std::shared_mutex> lock(mutex);
    tables.insert(metaObject, table);
    return table;
}

QLatin1String NameOf(FieldType type)
{
    switch (type) {
    case FieldType::String:
        return QLatin1String("string");
    case FieldType::Bool:
        return QLatin1String("bool");
    case FieldType::Int:
        return QLatin1String("int");
    case FieldType::Double:
        return QLatin1String("double");
    case FieldType::LongLong:
        return QLatin1String("64-bit int");
    case FieldType::StringList:
        return QLatin1String("array of strings");
    case FieldType::Other:
        break;
    }
    return QLatin1String("nothing");
}

// The JSON type, and a number's value, too: it tells a fraction or an excess from a wrong type.
QString NameOf(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Null:
        return QStringLiteral("null");
    case QJsonValue::Bool:
        return QStringLiteral("bool");
    case QJsonValue::Double:
        return QStringLiteral("number ") + QString::number(value.toDouble(), 'g', 17);
    case QJsonValue::String:
        return QStringLiteral("string");
    case QJsonValue::Array:
        return QStringLiteral("array");
    case QJsonValue::Object:
        return QStringLiteral("object");
    case QJsonValue::Undefined:
        break;
    }
    return QStringLiteral("nothing");
}

// The number as an integer from `lowest` to `highest`; invalid when it is not one.
QVariant ToInteger(const QJsonValue& value, qint64 lowest, qint64 highest)
{
    if (!value.isDouble()) {
        return QVariant();
    }
    const double number = value.toDouble();
    if (std::trunc(number) != number || number < double(lowest) || number > double(highest)) {
        return QVariant();
    }
    // A text with more digits was rounded in the double, but not in the variant.
    const qint64 integer = value.toVariant().toLongLong();
    return integer < lowest || integer > highest ? QVariant() : QVariant(integer);
}

QVariant ToStringList(const QJsonValue& value)
{
    if (!value.isArray()) {
        return QVariant();
    }
    QStringList list;
    const QJsonArray array = value.toArray();
    for (const QJsonValue& element : array) {
        if (!element.isString()) {
            return QVariant();
        }
        list.append(element.toString());
    }
    return list;
}

// The value for a property of this type; invalid when the JSON holds something else.
QVariant FromJson(FieldType type, const QJsonValue& value)
{
    switch (type) {
    case FieldType::String:
        return value.isString() ? value.toString() : QVariant();
    case FieldType::Bool:
        return value.isBool() ? value.toBool() : QVariant();
    case FieldType::Int: {
        const QVariant integer =
            ToInteger(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
        return integer.isValid() ? QVariant(int(integer.toLongLong())) : QVariant();
    }
    case FieldType::Double:
        return value.isDouble() ? value.toDouble() : QVariant();
    case FieldType::LongLong: {
        constexpr qint64 limit = Q_INT64_C(1) << std::numeric_limits<double>::digits;
        return ToInteger(value, -limit, limit);
    }
    case FieldType::StringList:
        return ToStringList(value);
    case FieldType::Other:
        break;
    }
    return QVariant();
}

// The value as JSON; undefined when there is no JSON for it.
QJsonValue ToJsonValue(FieldType type, const QVariant& value)
{
    switch (type) {
    case FieldType::String:
        return value.toString();
    case FieldType::Bool:
        return value.toBool();
    case FieldType::Int:
        return value.toInt();
    case FieldType::Double:
        return std::isfinite(value.toDouble()) ? value.toDouble() : QJsonValue(QJsonValue::Undefined);
    case FieldType::LongLong:
        return value.toLongLong();
    case FieldType::StringList:
        return QJsonArray::fromStringList(value.toStringList());
    case FieldType::Other:
        break;
    }
    return QJsonValue(QJsonValue::Undefined);
}

} // namespace

VXJsonParserBase::VXJsonParserBase(QObject* parent) : QObject(parent) {}

VXJsonParserBase::VXJsonParserBase(const VXJsonParserBase& other)
    : QObject(nullptr), m_parseErrors(other.m_parseErrors)
{}

VXJsonParserBase& VXJsonParserBase::operator=(const VXJsonParserBase& other)
{
    if (this != &other) {
        m_parseErrors = other.m_parseErrors;
    }
    return *this;
}

VXJsonParserBase::~VXJsonParserBase() = default;

bool VXJsonParserBase::Parse(const QJsonDocument& document)
{
    if (document.isObject()) {
        return Parse(document.object());
    }
    const QLatin1String found(document.isArray() ? "array" : "nothing");
    m_parseErrors = QStringList{QStringLiteral("wanted object, found ") + found};
    return false;
}

bool VXJsonParserBase::Parse(const QJsonObject& object)
{
    m_parseErrors.clear();
    const FieldTablePtr table = FieldTableOf(metaObject());
    for (const Field& field : table->fields) {
        const auto found = object.constFind(field.key);
        if (found == object.constEnd()) {
            continue;
        }
        const QJsonValue value = *found;
        if (ParseSpecial(field.key, value) || field.type == FieldType::Other ||
            !field.property.isWritable()) {
            continue;
        }
        const QVariant converted = FromJson(field.type, value);
        if (converted.isValid()) {
            field.property.write(this, converted);
        } else {
            m_parseErrors.append(QStringLiteral("key \"%1\": wanted %2, found %3")
                                     .arg(field.key, NameOf(field.type), NameOf(value)));
        }
    }
    return GetParseError().isEmpty();
}

bool VXJsonParserBase::Parse(const QByteArray& json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error == QJsonParseError::NoError) {
        return Parse(document);
    }
    m_parseErrors =
        QStringList{QStringLiteral("not JSON: %1 at byte %2").arg(error.errorString()).arg(error.offset)};
    return false;
}

QJsonObject VXJsonParserBase::ToJsonObject() const
{
    QJsonObject object;
    const FieldTablePtr table = FieldTableOf(metaObject());
    for (const Field& field : table->fields) {
        QJsonValue value(QJsonValue::Undefined);
        if (!ToSpecial(field.key, value)) {
            if (!JoinToJson(field.key) || field.type == FieldType::Other) {
                continue;
            }
            value = ToJsonValue(field.type, field.property.read(this));
        }
        if (!value.isUndefined()) {
            object.insert(field.key, value);
        }
    }
    return object;
}

QByteArray VXJsonParserBase::ToJson() const
{
    return QJsonDocument(ToJsonObject()).toJson(QJsonDocument::Compact);
}

QStringList VXJsonParserBase::GetParseError() const
{
    return m_parseErrors + GetParseErrorSpecial();
}

bool VXJsonParserBase::ParseSpecial(const QString&, const QJsonValue&)
{
    return false;
}

bool VXJsonParserBase::ToSpecial(const QString&, QJsonValue&) const
{
    return false;
}

bool VXJsonParserBase::JoinToJson(const QString&) const
{
    return true;
}

QStringList VXJsonParserBase::GetParseErrorSpecial() const
{
    return QStringList();
}

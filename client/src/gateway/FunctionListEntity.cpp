#include "FunctionListEntity.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>

bool FunctionListEntity::ParseSpecial(const QString& key, const QJsonValue& value)
{
    if (key != QLatin1String("functions")) {
        return false;
    }
    m_functions.clear();
    m_errors.clear();
    if (!value.isArray()) {
        m_errors.append(QStringLiteral("functions: no list"));
        return true;
    }
    const QJsonArray array = value.toArray();
    for (int i = 0; i < array.size(); ++i) {
        const QJsonObject object = array.at(i).toObject();
        const int number = object.value(QLatin1String("number")).toInt(-1);
        const QJsonValue valid = object.value(QLatin1String("valid"));
        const QJsonValue display = object.value(QLatin1String("display"));
        if (number < 0 || !valid.isBool() || !display.isBool()) {
            m_errors.append(QStringLiteral("functions[%1]: no switch with number, valid and display").arg(i));
            continue;
        }
        m_functions.insert(number, TLFunctionInfo(valid.toBool(), display.toBool()));
    }
    return true;
}

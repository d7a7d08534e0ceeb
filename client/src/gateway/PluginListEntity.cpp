#include "PluginListEntity.h"

#include <QtCore/QJsonArray>

bool PluginListEntity::ParseSpecial(const QString& key, const QJsonValue& value)
{
    if (key != QLatin1String("plugins")) {
        return false;
    }
    m_plugins.clear();
    m_errors.clear();
    if (!value.isArray()) {
        m_errors.append(QStringLiteral("plugins: no list"));
        return true;
    }
    const QJsonArray array = value.toArray();
    for (int i = 0; i < array.size(); ++i) {
        const auto plugin = QSharedPointer<TLPluginBaseEntity>::create();
        if (!array.at(i).isObject() || !plugin->Parse(array.at(i).toObject()) ||
            plugin->GetServiceCode().isEmpty()) {
            m_errors.append(QStringLiteral("plugins[%1]: no app with a service code. %2")
                                .arg(i)
                                .arg(plugin->GetParseError().join(QLatin1Char(' ')))
                                .trimmed());
            continue;
        }
        m_plugins.append(plugin);
    }
    return true;
}

#include "frame-data/TLPluginBaseManager.h"

TLPluginBaseManager::TLPluginBaseManager(QObject* parent) : QObject(parent) {}

TLPluginBaseManager::~TLPluginBaseManager() = default;

QList<QSharedPointer<TLPluginBaseEntity>> TLPluginBaseManager::GetPlugins() const
{
    return m_plugins;
}

QSharedPointer<TLPluginBaseEntity> TLPluginBaseManager::GetPlugin(const QString& serviceCode) const
{
    return m_byServiceCode.value(serviceCode);
}

void TLPluginBaseManager::SetPlugins(const QList<QSharedPointer<TLPluginBaseEntity>>& plugins)
{
    QList<QSharedPointer<TLPluginBaseEntity>> usable;
    QHash<QString, QSharedPointer<TLPluginBaseEntity>> byServiceCode;
    for (const QSharedPointer<TLPluginBaseEntity>& plugin : plugins) {
        if (!plugin || plugin->GetServiceCode().isEmpty() ||
            byServiceCode.contains(plugin->GetServiceCode())) {
            continue;
        }
        usable.append(plugin);
        byServiceCode.insert(plugin->GetServiceCode(), plugin);
    }
    m_plugins = usable;
    m_byServiceCode = byServiceCode;
    Q_EMIT SigPluginsChanged();
}

#pragma once

#include "frame-data/FrameDataExport.h"
#include "frame-data/TLPluginBaseEntity.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QSharedPointer>

/// The app list. The client owns one object, found at `tl://plugins/object`. GUI thread.
class TL_FRAME_DATA_EXPORT TLPluginBaseManager : public QObject
{
    Q_OBJECT

public:
    explicit TLPluginBaseManager(QObject* parent = nullptr);
    ~TLPluginBaseManager() override;

    /// All apps in the operator's order; empty while the list has not arrived.
    QList<QSharedPointer<TLPluginBaseEntity>> GetPlugins() const;
    /// The app with this key; null when there is none. Keys are compared exactly.
    QSharedPointer<TLPluginBaseEntity> GetPlugin(const QString& serviceCode) const;

    /// Replaces the list. The first of several apps with one key counts. Leaves out null pointers and apps
    /// without a key, which nothing could open.
    void SetPlugins(const QList<QSharedPointer<TLPluginBaseEntity>>& plugins);

Q_SIGNALS:
    void SigPluginsChanged();

private:
    QList<QSharedPointer<TLPluginBaseEntity>> m_plugins;
    QHash<QString, QSharedPointer<TLPluginBaseEntity>> m_byServiceCode;
};

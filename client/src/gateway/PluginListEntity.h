#pragma once

#include "base/VXJsonParserBase.h"
#include "frame-data/TLPluginBaseEntity.h"

#include <QtCore/QList>
#include <QtCore/QSharedPointer>
#include <QtCore/QVariantList>

/// The gateway's answer with the app list. An app that cannot be understood, or has no service code, is
/// left out and counts as a parse error of the list.
class PluginListEntity final : public VXJsonParserBase
{
    Q_OBJECT
    Q_PROPERTY(QVariantList plugins READ GetPluginVariants)

public:
    explicit PluginListEntity(QObject* parent = nullptr) : VXJsonParserBase(parent) {}

    QList<QSharedPointer<TLPluginBaseEntity>> GetPlugins() const { return m_plugins; }

protected:
    bool ParseSpecial(const QString& key, const QJsonValue& value) override;
    QStringList GetParseErrorSpecial() const override { return m_errors; }

private:
    QVariantList GetPluginVariants() const { return {}; }

    QList<QSharedPointer<TLPluginBaseEntity>> m_plugins;
    // Until the list is seen: an answer without it is not an empty list.
    QStringList m_errors{QStringLiteral("plugins: missing")};
};

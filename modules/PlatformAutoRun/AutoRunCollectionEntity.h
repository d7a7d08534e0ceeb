#pragma once

#include "AutoRunInfoEntityPtr.h"

#include "base/VXJsonParserBase.h"

#include <QtCore/QList>

/// The auto-run configuration of a user. The order within each list is the order of the rows on the
/// settings page and of the opening at start. GUI thread.
class AutoRunCollectionEntity final : public VXJsonParserBase
{
    Q_OBJECT
    Q_PROPERTY(QList<AutoRunInfoEntityPtr> systemItems MEMBER systemItems)
    Q_PROPERTY(QList<AutoRunInfoEntityPtr> customItems MEMBER customItems)
    Q_PROPERTY(QList<AutoRunInfoEntityPtr> pluginItems MEMBER pluginItems)

public:
    explicit AutoRunCollectionEntity(QObject* parent = nullptr);

    QList<AutoRunInfoEntityPtr> systemItems;
    /// The user's own web addresses.
    QList<AutoRunInfoEntityPtr> customItems;
    /// The user's apps.
    QList<AutoRunInfoEntityPtr> pluginItems;

protected:
    /// Replaces the list of that name. Lenient on purpose: every element of the array gives an entry; what
    /// an element does not supply, or supplies wrongly, keeps its initial value and is no parse error.
    bool ParseSpecial(const QString& key, const QJsonValue& value) override;
    /// Empty pointers in a list are left out.
    bool ToSpecial(const QString& key, QJsonValue& value) const override;

private:
    Q_DISABLE_COPY(AutoRunCollectionEntity)
};

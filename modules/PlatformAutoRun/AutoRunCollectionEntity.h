#pragma once

#include "AutoRunInfoEntityPtr.h"

#include "base/VXJsonParserBase.h"

#include <QtCore/QList>

/// The auto-run configuration of a user. Each list is in the order of the rows on the settings page, which is
/// also the order of opening. GUI thread.
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
    /// Replaces the list of that name. Deliberately lenient: every element of the array makes an entry; a
    /// field that is missing or wrong keeps its initial value and is no parse error.
    bool ParseSpecial(const QString& key, const QJsonValue& value) override;
    /// Leaves out null pointers.
    bool ToSpecial(const QString& key, QJsonValue& value) const override;

private:
    Q_DISABLE_COPY(AutoRunCollectionEntity)
};

#pragma once

#include "TabRecoverItem.h"

#include "base/VXJsonParserBase.h"

#include <QtCore/QList>

/// The record of open tabs that survives an interrupted run, kept as JSON among the user's settings. GUI
/// thread.
class TLTabRecoverData final : public VXJsonParserBase
{
    Q_OBJECT
    Q_PROPERTY(QString belongType MEMBER belongType)
    Q_PROPERTY(QList<TabRecoverItem> tabRecoverItems MEMBER tabRecoverItems)

public:
    explicit TLTabRecoverData(QObject* parent = nullptr);
    ~TLTabRecoverData() override;

    /// The belong type of the tabs' user. The tabs are offered only to users of the same belong type.
    QString belongType;
    /// In the order of the tabs, without the home tab.
    QList<TabRecoverItem> tabRecoverItems;

protected:
    /// Replaces the items. Deliberately lenient: every element of the array makes an item; a field that is
    /// missing or wrong keeps its initial value and is no parse error.
    bool ParseSpecial(const QString& key, const QJsonValue& value) override;
    bool ToSpecial(const QString& key, QJsonValue& value) const override;

private:
    Q_DISABLE_COPY(TLTabRecoverData)
};

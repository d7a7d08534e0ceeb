#pragma once

#include "TabRecoverItem.h"

#include "base/VXJsonParserBase.h"

#include <QtCore/QList>

/// The record of open tabs that outlives an interrupted run, kept as JSON among the user's settings.
/// GUI thread.
class TLTabRecoverData final : public VXJsonParserBase
{
    Q_OBJECT
    Q_PROPERTY(QString belongType MEMBER belongType)
    Q_PROPERTY(QList<TabRecoverItem> tabRecoverItems MEMBER tabRecoverItems)

public:
    explicit TLTabRecoverData(QObject* parent = nullptr);
    ~TLTabRecoverData() override;

    /// Of the user whose tabs these are. The tabs are offered to users of the same belong type only.
    QString belongType;
    /// In the order of the tabs, without the home tab.
    QList<TabRecoverItem> tabRecoverItems;

protected:
    /// Replaces the items. Lenient on purpose: every element of the array gives an item; what an element
    /// does not supply, or supplies wrongly, keeps its initial value and is no parse error.
    bool ParseSpecial(const QString& key, const QJsonValue& value) override;
    bool ToSpecial(const QString& key, QJsonValue& value) const override;

private:
    Q_DISABLE_COPY(TLTabRecoverData)
};

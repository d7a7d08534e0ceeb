#pragma once

#include "base/VXJsonParserBase.h"

#include <QtCore/QString>

/// One tab of the record of open tabs. A value: a copy has the same four fields. GUI thread.
class TabRecoverItem final : public VXJsonParserBase
{
    Q_OBJECT
    Q_PROPERTY(QString routerUrl MEMBER routerUrl)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString icon MEMBER icon)
    Q_PROPERTY(int type MEMBER type)

public:
    explicit TabRecoverItem(QObject* parent = nullptr);
    TabRecoverItem(const TabRecoverItem& other);
    TabRecoverItem& operator=(const TabRecoverItem& other);
    ~TabRecoverItem() override;

    /// Whether the four fields are equal.
    bool operator==(const TabRecoverItem& other) const;
    bool operator!=(const TabRecoverItem& other) const;

    /// The router URL that reopens the tab.
    QString routerUrl;
    QString title;
    /// The address of the icon; empty when there is none.
    QString icon;
    /// One of the client's `TabType`; 0 for a tab that nothing is known about.
    int type = 0;
};

#pragma once

#include "frame-core/IBrowserTab.h"

/// A tab with the values that the test gives.
class FakeBrowserTab final : public IBrowserTab
{
public:
    FakeBrowserTab(const QSharedPointer<TabData>& data, const QString& routerUrl);

    QSharedPointer<TabData> GetTabData() const override;
    QString GetRouterUrl() const override;

private:
    QSharedPointer<TabData> m_data;
    QString m_routerUrl;
};

#include "FakeBrowserTab.h"

FakeBrowserTab::FakeBrowserTab(const QSharedPointer<TabData>& data, const QString& routerUrl)
    : m_data(data), m_routerUrl(routerUrl)
{}

QSharedPointer<TabData> FakeBrowserTab::GetTabData() const
{
    return m_data;
}

QString FakeBrowserTab::GetRouterUrl() const
{
    return m_routerUrl;
}

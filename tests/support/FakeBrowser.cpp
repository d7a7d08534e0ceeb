#include "FakeBrowser.h"

FakeBrowser::FakeBrowser(int tabCount)
{
    for (int i = 0; i < tabCount; ++i) {
        AddTab({}, QString());
    }
}

FakeBrowser::~FakeBrowser() = default;

void FakeBrowser::AddTab(const QSharedPointer<TabData>& data, const QString& routerUrl)
{
    m_tabs.push_back(std::make_unique<FakeBrowserTab>(data, routerUrl));
}

QStringList FakeBrowser::GetCalls() const
{
    return m_calls;
}

QList<FakeBrowser::OpenedPlugin> FakeBrowser::GetOpenedPlugins() const
{
    return m_openedPlugins;
}

QList<FakeBrowser::OpenedUrl> FakeBrowser::GetOpenedUrls() const
{
    return m_openedUrls;
}

int FakeBrowser::GetTabCount() const
{
    return static_cast<int>(m_tabs.size());
}

void FakeBrowser::SelectTab(int index)
{
    m_calls.append(QStringLiteral("select %1").arg(index));
}

IBrowserTab* FakeBrowser::GetTab(int index) const
{
    return index >= 0 && index < GetTabCount() ? m_tabs[static_cast<size_t>(index)].get() : nullptr;
}

QWidget* FakeBrowser::GetMainWidget() const
{
    return m_mainWidget;
}

void FakeBrowser::OpenPlugin(const PluginOpenInfo& info, int index)
{
    m_calls.append(QStringLiteral("plugin ") + info.serviceCode);
    m_openedPlugins.append({info, index});
    AddTab({}, QString());
}

void FakeBrowser::OpenUrl(const TabOpenInfo& info, int index)
{
    m_calls.append(QStringLiteral("url ") + info.address);
    m_openedUrls.append({info, index});
    AddTab({}, QString());
}

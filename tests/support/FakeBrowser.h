#pragma once

#include "FakeBrowserTab.h"

#include "frame-core/IBrowserMain.h"
#include "frame-data/ITabOpener.h"
#include "frame-data/PluginOpenInfo.h"
#include "frame-data/TabOpenInfo.h"

#include <QtCore/QList>
#include <QtCore/QStringList>

#include <memory>
#include <vector>

/// A browser without a window. Every opening appends one tab immediately, as the real one does, and records
/// the call in order.
class FakeBrowser final : public IBrowserMain, public ITabOpener
{
public:
    struct OpenedPlugin
    {
        PluginOpenInfo info;
        int index;
    };
    struct OpenedUrl
    {
        TabOpenInfo info;
        int index;
    };

    /// Begins with `tabCount` tabs that have neither data nor a router URL.
    explicit FakeBrowser(int tabCount = 1);
    ~FakeBrowser() override;

    /// Adds a tab without recording a call.
    void AddTab(const QSharedPointer<TabData>& data, const QString& routerUrl);

    /// Sets the widget that stands for the browser's window; does not own it.
    void SetMainWidget(QWidget* widget) noexcept { m_mainWidget = widget; }

    /// `url <address>`, `plugin <service code>`, `select <index>`, in call order.
    QStringList GetCalls() const;
    QList<OpenedPlugin> GetOpenedPlugins() const;
    QList<OpenedUrl> GetOpenedUrls() const;

    int GetTabCount() const override;
    void SelectTab(int index) override;
    IBrowserTab* GetTab(int index) const override;
    /// Null until `SetMainWidget`.
    QWidget* GetMainWidget() const override;

    void OpenPlugin(const PluginOpenInfo& info, int index) override;
    void OpenUrl(const TabOpenInfo& info, int index) override;

private:
    std::vector<std::unique_ptr<FakeBrowserTab>> m_tabs;
    QWidget* m_mainWidget = nullptr;
    QStringList m_calls;
    QList<OpenedPlugin> m_openedPlugins;
    QList<OpenedUrl> m_openedUrls;
};

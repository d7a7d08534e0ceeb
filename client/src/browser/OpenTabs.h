#pragma once

#include "LoadQueue.h"
#include "TabId.h"
#include "TabList.h"
#include "browser/PictureLoader.h"
#include "pages/ITabPage.h"

#include <QtCore/QObject>

#include <memory>
#include <unordered_map>

class BrowserTab;
class IPageFactory;
class PageStack;
class TLPluginBaseManager;

/// The open tabs with their contents: keeps a `BrowserTab` for each tab of the list, opens and closes them,
/// and says what becomes of them. Which tab is shown is up to the window. GUI thread.
class OpenTabs final : public QObject
{
    Q_OBJECT

public:
    /// What tabs need of the rest of the client. Not owned; `apps` and `loadPicture` may be left out.
    struct Services
    {
        IPageFactory* pages = nullptr;
        TLPluginBaseManager* apps = nullptr;
        PictureLoader loadPicture;
    };

    /// `stack` takes the contents; it outlives this object, and so do the services.
    OpenTabs(const Services& services, PageStack* stack, QObject* parent = nullptr);
    ~OpenTabs() override;

    /// Order, current tab and records; to be changed through this object alone.
    const TabList& GetList() const noexcept;
    LoadQueue& GetQueue() noexcept;
    /// Null for an index out of range.
    BrowserTab* GetTab(int index) const;
    BrowserTab* GetCurrentTab() const;
    /// -1 when no tab shows the app.
    int FindApp(const QString& serviceCode) const;
    bool IsLoading() const;
    /// After `CloseAll`: nothing opens any more.
    bool HasEnded() const noexcept;

    /// Opens the home tab, which shows the widget. Once, before all others.
    void OpenHome(QWidget* content);
    /// Opens a tab at a position counted as by `ITabOpener`; the tab begins here. `SigOpened` and, with
    /// `activate`, `SigSelectRequested` follow before this returns. `NoTab` when all tabs are closed for
    /// good.
    TabId Open(const TabRecord& record, int index, bool activate);
    /// The same for another part of the client: the tab may be one of a set that is being reopened.
    void OpenAsked(TabRecord record, int index, bool activate);
    /// While on, what another part opens stays unloaded until it is selected, and does not come to the front.
    void SetOpenDelayed(bool on);
    /// Opens the tab that was closed last, where it was. One that was never selected comes back unloaded.
    /// Returns where it stands, or -1.
    int ReopenClosed();
    bool Select(int index);
    bool Move(int from, int to);
    /// Asks nobody. The tab itself is deleted later, because one of its own signals may have led here.
    void Close(int index);
    /// Closes all but the home tab, for good.
    void CloseAll();

    /// Shows the tab's content; a delayed tab begins.
    void Show(int index);
    /// Fetches the icons of these tabs, once for each.
    void FetchIcons(int first, int last);
    void Retranslate();
    /// Announces `SigIdle` when the last loading tab has finished or is gone.
    void CheckIdle();

Q_SIGNALS:
    void SigOpened(int index);
    /// A tab that opened is to come to the front.
    void SigSelectRequested(int index);
    /// A tab may close: nothing is to lose there, or the user has agreed.
    void SigCloseRequested(int index);
    /// What the tab shows, or how far it has loaded.
    void SigLooksChanged(int index);
    void SigPageLoaded(int index, const QUrl& url, bool ok);
    void SigFullScreenRequested(int index, bool on);
    void SigLinkHovered(int index, const QString& address);
    /// Tabs got other icons to fetch.
    void SigIconsWanted();
    void SigIdle();

private:
    void Connect(TabId id, BrowserTab* tab);
    /// The tab is not in the list yet.
    TabId Make(const TabRecord& record);
    void Announce(TabId id, bool activate);
    void OpenPage(TabId opener, const std::shared_ptr<std::unique_ptr<ITabPage>>& offer,
                  ITabPage::NewTabKind kind);
    void LoadWaiting(TabId id);
    void ResolveApps();
    void UpdateRecord(int index);

    const Services m_services;
    PageStack* m_stack;
    TabList m_list;
    LoadQueue m_queue;
    std::unordered_map<TabId, std::unique_ptr<BrowserTab>> m_tabs;
    TabId m_lastId = NoTab;
    bool m_openDelayed = false;
    bool m_wasLoading = false;
    bool m_ended = false;
};

#include "OpenTabs.h"

#include "BrowserTab.h"
#include "PageStack.h"
#include "TabOpening.h"
#include "browser/MainWindow.h"

#include "frame-data/TLPluginBaseManager.h"

#include <algorithm>

OpenTabs::OpenTabs(const Services& services, PageStack* stack, QObject* parent)
    : QObject(parent)
    , m_services(services)
    , m_stack(stack)
    , m_queue(MainWindow::FrontGoesFirst, [this] { return GetCurrentTab()->HasPage(); })
{
    connect(&m_queue, &LoadQueue::SigTurn, this, &OpenTabs::LoadWaiting);
    connect(&m_queue, &LoadQueue::SigEmpty, this, &OpenTabs::CheckIdle);
    if (m_services.apps) {
        connect(m_services.apps, &TLPluginBaseManager::SigPluginsChanged, this, &OpenTabs::ResolveApps);
    }
}

OpenTabs::~OpenTabs()
{
    m_ended = true;
    for (const auto& held : m_tabs) {
        held.second->disconnect(this);
    }
    // Closed ones that still wait to be deleted: pages go before what makes them.
    qDeleteAll(findChildren<BrowserTab*>(QString(), Qt::FindDirectChildrenOnly));
    m_tabs.clear();
}

const TabList& OpenTabs::GetList() const noexcept
{
    return m_list;
}

LoadQueue& OpenTabs::GetQueue() noexcept
{
    return m_queue;
}

BrowserTab* OpenTabs::GetTab(int index) const
{
    const auto held = m_tabs.find(m_list.GetId(index));
    return held == m_tabs.end() ? nullptr : held->second.get();
}

BrowserTab* OpenTabs::GetCurrentTab() const
{
    return GetTab(m_list.GetCurrent());
}

int OpenTabs::FindApp(const QString& serviceCode) const
{
    for (int index = 1; index < m_list.GetCount(); ++index) {
        if (m_list.GetRecord(index).serviceCode == serviceCode) {
            return index;
        }
    }
    return -1;
}

bool OpenTabs::IsLoading() const
{
    return !m_queue.IsEmpty() || std::any_of(m_tabs.begin(), m_tabs.end(),
                                             [](const auto& held) { return held.second->IsLoading(); });
}

bool OpenTabs::HasEnded() const noexcept
{
    return m_ended;
}

void OpenTabs::OpenHome(QWidget* content)
{
    TabRecord home;
    home.type = TabType::Home;
    home.closable = false;
    home.remember = false;
    const TabId id = Make(home);
    BrowserTab* const tab = m_tabs.at(id).get();
    tab->Begin(m_stack, content);
    m_stack->Add(tab->GetWidget());
    m_list.Insert(id, tab->GetRecord(), 0);
}

TabId OpenTabs::Open(const TabRecord& record, int index, bool activate)
{
    if (m_ended) {
        return NoTab;
    }
    const TabId id = Make(record);
    BrowserTab* const tab = m_tabs.at(id).get();
    m_list.Insert(id, tab->GetRecord(), index);
    tab->Begin(m_stack);
    Announce(id, activate);
    return id;
}

void OpenTabs::OpenAsked(TabRecord record, int index, bool activate)
{
    if (m_ended) {
        return;
    }
    record.routerUrl = TabOpening::MakeRouterUrl(record, record.address);
    record.delayed = record.delayed || m_openDelayed;
    const bool inFront = activate && !m_openDelayed;
    const bool waits = m_queue.Admit(record, inFront);
    const TabId id = Open(record, index, inFront);
    if (waits) {
        m_queue.Append(id);
    }
}

void OpenTabs::SetOpenDelayed(bool on)
{
    m_openDelayed = on;
}

int OpenTabs::ReopenClosed()
{
    const auto closed = m_ended ? std::nullopt : m_list.TakeClosed();
    return closed ? m_list.IndexOf(Open(closed->record, closed->index, !closed->record.delayed)) : -1;
}

bool OpenTabs::Select(int index)
{
    return m_list.Select(index);
}

bool OpenTabs::Move(int from, int to)
{
    return m_list.Move(from, to);
}

void OpenTabs::Close(int index)
{
    const auto held = m_tabs.find(m_list.GetId(index));
    if (held == m_tabs.end() || index == 0 || m_ended) {
        return;
    }
    BrowserTab* const tab = held->second.release();
    m_tabs.erase(held);
    m_list.Remove(index, tab->GetReopenRecord());
    m_stack->Remove(tab->GetWidget());
    tab->disconnect(this);
    tab->setParent(this);
    tab->deleteLater();
}

void OpenTabs::CloseAll()
{
    m_ended = true;
    const TabId home = m_list.GetId(0);
    for (auto held = m_tabs.begin(); held != m_tabs.end();) {
        if (held->first == home) {
            ++held;
        } else {
            held->second->disconnect(this);
            held->second.release()->setParent(this);
            held = m_tabs.erase(held);
        }
    }
    m_list.Clear();
    Show(0);
    qDeleteAll(findChildren<BrowserTab*>(QString(), Qt::FindDirectChildrenOnly));
}

void OpenTabs::Show(int index)
{
    BrowserTab* const tab = GetTab(index);
    if (tab) {
        tab->Wake(m_stack);
        m_stack->Show(tab->GetWidget());
    }
}

void OpenTabs::FetchIcons(int first, int last)
{
    if (!m_services.loadPicture) {
        return;
    }
    for (int index = first; index <= last; ++index) {
        BrowserTab* const tab = GetTab(index);
        const QString url = tab ? tab->TakeIconRequest() : QString();
        if (!url.isEmpty()) {
            m_services.loadPicture(url, tab, [tab](const QPixmap& picture) { tab->SetIcon(QIcon(picture)); });
        }
    }
}

void OpenTabs::Retranslate()
{
    for (int index = 0; index < m_list.GetCount(); ++index) {
        GetTab(index)->Retranslate();
    }
}

void OpenTabs::CheckIdle()
{
    if (m_wasLoading && !IsLoading()) {
        m_wasLoading = false;
        Q_EMIT SigIdle();
    }
}

void OpenTabs::Connect(TabId id, BrowserTab* tab)
{
    // Signals before the tab is inserted are not missed: the list gets the record then.
    const auto on = [this, id, tab](auto signal, const auto& handle) {
        connect(tab, signal, this, [this, id, handle](const auto&... arguments) {
            const int index = m_list.IndexOf(id);
            if (index >= 0) {
                handle(index, arguments...);
            }
        });
    };
    on(&BrowserTab::SigChanged, [this](int index) {
        Q_EMIT SigLooksChanged(index);
        UpdateRecord(index);
    });
    on(&BrowserTab::SigStateChanged, [this, tab](int index) {
        Q_EMIT SigLooksChanged(index);
        m_wasLoading = m_wasLoading || tab->IsLoading();
    });
    on(&BrowserTab::SigLoaded, [this, tab](int index, const QUrl& url, bool ok) {
        Q_EMIT SigPageLoaded(index, url, ok);
        if (tab == GetCurrentTab()) {
            m_queue.HandleFrontLoaded();
        }
        CheckIdle();
    });
    on(&BrowserTab::SigNewTabRequested,
       [this, id](int, const std::shared_ptr<std::unique_ptr<ITabPage>>& page, ITabPage::NewTabKind kind) {
           OpenPage(id, page, kind);
       });
    on(&BrowserTab::SigCloseRequested, [this](int index) { Q_EMIT SigCloseRequested(index); });
    on(&BrowserTab::SigFullScreenRequested,
       [this](int index, bool full) { Q_EMIT SigFullScreenRequested(index, full); });
    on(&BrowserTab::SigLinkHovered,
       [this](int index, const QString& address) { Q_EMIT SigLinkHovered(index, address); });
}

TabId OpenTabs::Make(const TabRecord& record)
{
    const TabId id = ++m_lastId;
    auto tab = std::make_unique<BrowserTab>(record, m_services.pages);
    Connect(id, tab.get());
    m_tabs.emplace(id, std::move(tab));
    return id;
}

void OpenTabs::Announce(TabId id, bool activate)
{
    const int index = m_list.IndexOf(id);
    if (index < 0) {
        return; // it closed as soon as it began
    }
    m_stack->Add(GetTab(index)->GetWidget());
    Q_EMIT SigOpened(index);
    const int now = m_list.IndexOf(id); // a receiver may have opened, moved or closed tabs
    if (activate && now >= 0) {
        Q_EMIT SigSelectRequested(now);
    }
}

void OpenTabs::OpenPage(TabId opener, const std::shared_ptr<std::unique_ptr<ITabPage>>& offer,
                        ITabPage::NewTabKind kind)
{
    if (m_ended) {
        return;
    }
    const bool inFront = kind == ITabPage::NewTabKind::Foreground;
    const TabId id = Make(TabRecord());
    BrowserTab* const tab = m_tabs.at(id).get();
    tab->Begin(m_stack, std::move(*offer));
    m_list.Insert(id, tab->GetRecord(), m_list.FindPlaceBeside(opener, inFront));
    Announce(id, inFront);
    m_list.SetOpener(id, opener); // not before: it would be forgotten when the tab comes to the front
}

void OpenTabs::LoadWaiting(TabId id)
{
    const int index = m_list.IndexOf(id);
    if (index >= 0 && m_list.GetRecord(index).delayed) {
        BrowserTab* const tab = GetTab(index);
        tab->Wake(m_stack);
        m_stack->Add(tab->GetWidget());
    }
}

void OpenTabs::ResolveApps()
{
    for (int index = 0; index < m_list.GetCount(); ++index) {
        const TabRecord& record = m_list.GetRecord(index);
        const bool unknown = record.trouble == TabRecord::Trouble::UnknownApp;
        if (record.serviceCode.isEmpty() || (!record.delayed && !unknown)) {
            continue;
        }
        const TabRecord app = TabOpening::MakeAppRecord(record.serviceCode, m_services.apps);
        if (!unknown || app.trouble != TabRecord::Trouble::UnknownApp) {
            GetTab(index)->SetApp(app, m_stack);
        }
    }
    Q_EMIT SigIconsWanted();
}

void OpenTabs::UpdateRecord(int index)
{
    m_list.SetRecord(index, GetTab(index)->GetRecord());
}

#include "recovery/TabKeeper.h"

#include "notices/NoticeBoard.h"
#include "system/QuestionWatch.h"
#include "system/TimerDelay.h"

#include "browser/TabRouterUrls.h"

#include "EarlierTabsDialog.h"
#include "browser/MainWindow.h"

#include "base/VXRouterProtocol.h"
#include "frame-core/IBrowserTab.h"
#include "settings-store/VXSettingManager.h"
#include "tab-container/TabData.h"

#include <QtCore/QEvent>
#include <QtCore/QUrl>
#include <QtWidgets/QAction>

#include <algorithm>
#include <iterator>

namespace {

// What the client tells whoever keeps the tabs. Nobody needs to listen.
const QString updateUrl = QStringLiteral("tl://autorun/update");
const QString cleanUrl = QStringLiteral("tl://autorun/clean");
const QString restartUpdateUrl = QStringLiteral("tl://autorun/restart/update");

const QString urlParameter = QStringLiteral("url");

const QString missingId = QStringLiteral("tabs-missing");
const QString careId = QStringLiteral("tabs-unloaded");

/// With the address, which a person reads and a record leaves out.
TabRecord ToShownTab(TabRecord tab)
{
    const VXRouterProtocol route(tab.routerUrl);
    if (route.Matches(TabRouterUrls::BrowserOpen)) {
        tab.address = QUrl(route.GetWith(urlParameter));
    }
    return tab;
}

EarlierTabSet::Reason ToReason(const EarlierTabStore::Set& set)
{
    switch (set.fate) {
    case EarlierTabStore::Fate::Declined:
        return EarlierTabSet::Reason::Declined;
    case EarlierTabStore::Fate::Reopened:
        return EarlierTabSet::Reason::Offered;
    case EarlierTabStore::Fate::NotWhole:
        return EarlierTabSet::Reason::NotRestored;
    case EarlierTabStore::Fate::Dropped:
        break;
    }
    return set.whole ? EarlierTabSet::Reason::Dropped : EarlierTabSet::Reason::Unreadable;
}

QVector<EarlierTabSet> ReadEarlierSets()
{
    QVector<EarlierTabSet> sets;
    const QVector<EarlierTabStore::Set> kept = EarlierTabStore::GetSets();
    for (const EarlierTabStore::Set& set : kept) {
        EarlierTabSet shown;
        shown.when = set.tabs.when;
        shown.reason = ToReason(set);
        shown.incomplete = !set.whole;
        std::transform(set.tabs.tabs.cbegin(), set.tabs.tabs.cend(), std::back_inserter(shown.tabs),
                       &ToShownTab);
        sets.append(shown);
    }
    return sets;
}

/// Whether the next log-in is to offer the tabs: the user did not choose this end.
bool LeavesTabs(EndKind kind)
{
    return kind == EndKind::SystemEnd || kind == EndKind::Refused;
}

void OpenAgain(const QVector<TabRecord>& tabs)
{
    for (const TabRecord& tab : tabs) {
        VXRouterProtocol(tab.routerUrl)
            .With(QStringLiteral("isDelay"), QStringLiteral("1"))
            .With(QStringLiteral("title"), tab.title)
            .With(QStringLiteral("icon"), tab.iconUrl)
            .Execute();
    }
}

} // namespace

TabKeeper::TabKeeper(MainWindow* window, QuestionWatch* questions, NoticeBoard* notices,
                     const PictureLoader& loadPicture, QObject* parent)
    : QObject(parent)
    , m_window(window)
    , m_notices(notices)
    , m_loadPicture(loadPicture)
    , m_earlier(new QAction(this))
    , m_watch(std::make_unique<TimerDelay>())
    , m_guard(std::make_unique<TimerDelay>())
    , m_returning(window, &m_guard, questions)
{
    m_earlier->setObjectName(QStringLiteral("earlier_tabs_action"));
    connect(m_earlier, &QAction::triggered, this, &TabKeeper::ShowEarlierTabs);
    window->AddTabAction(m_earlier);
    window->installEventFilter(this);
    Retranslate();
    connect(&m_watch, &OpenTabsWatch::SigKeep, this, &TabKeeper::Keep);
    connect(&m_returning, &TabReopening::SigCareTaken, this, &TabKeeper::ShowCare);
    connect(&m_returning, &TabReopening::SigMissing, this, &TabKeeper::ShowMissing);
}

TabKeeper::~TabKeeper() = default;

void TabKeeper::Show(bool restarted, const std::function<void()>& mainFrameShow)
{
    m_returning.Run(restarted, mainFrameShow);
    if (m_ending) {
        return;
    }
    m_shown = true;
    m_watch.Start(m_window);
}

void TabKeeper::TakeEnding()
{
    m_ending = true;
    m_returning.Cancel();
}

void TabKeeper::KeepOnDisk()
{
    if (!m_watch.IsRunning()) {
        return; // the tabs of the run before may still have to be offered
    }
    VXRouterProtocol(updateUrl).Execute();
    m_running.KeepNow(GetOpenTabs());
    // Whoever ends the session may end this process the moment it looks idle.
    VXSettingManager::Instance()->Flush();
}

void TabKeeper::BeforeEnd(EndKind kind, const QString& ignoreUrl)
{
    const bool kept = m_watch.IsRunning();
    if (LeavesTabs(kind)) {
        KeepOnDisk();
    }
    m_watch.Stop();
    m_guard.TakeEnd();
    if (kept && kind == EndKind::Restart) {
        KeepForRestart(ignoreUrl);
    }
}

void TabKeeper::AfterMainFrameQuit(EndKind kind)
{
    if (!m_shown || LeavesTabs(kind)) {
        return;
    }
    VXRouterProtocol(cleanUrl).Execute();
    if (kind != EndKind::Restart) {
        m_running.Clear();
    }
}

void TabKeeper::Keep()
{
    VXRouterProtocol(updateUrl).Execute();
    m_running.Keep(GetOpenTabs());
}

void TabKeeper::KeepForRestart(const QString& ignoreUrl)
{
    VXRouterProtocol(restartUpdateUrl).With(QStringLiteral("ignore"), ignoreUrl).Execute();
    TabSet tabs = GetOpenTabs();
    const auto isIgnored = [&ignoreUrl](const TabRecord& tab) {
        return tab.routerUrl.compare(ignoreUrl, Qt::CaseInsensitive) == 0;
    };
    if (tabs.current >= 0 && isIgnored(tabs.tabs.at(tabs.current))) {
        tabs.current = -1;
    } else {
        tabs.current -= static_cast<int>(
            std::count_if(tabs.tabs.cbegin(), tabs.tabs.cbegin() + std::max(tabs.current, 0), isIgnored));
    }
    tabs.tabs.erase(std::remove_if(tabs.tabs.begin(), tabs.tabs.end(), isIgnored), tabs.tabs.end());
    m_running.KeepNow(tabs);
}

TabSet TabKeeper::GetOpenTabs() const
{
    TabSet tabs;
    tabs.when = QDateTime::currentDateTimeUtc();
    const int count = m_window->GetTabCount();
    tabs.tabs.reserve(count);
    for (int index = 1; index < count; ++index) {
        const IBrowserTab* const tab = m_window->GetTab(index);
        const QSharedPointer<TabData> data = tab->GetTabData();
        const QString routerUrl = tab->GetRouterUrl();
        if (routerUrl.isEmpty() || !data) {
            continue;
        }
        if (index == m_window->GetCurrentTab()) {
            tabs.current = tabs.tabs.size();
        }
        tabs.tabs.append({routerUrl, data->GetTitle(), data->GetIconUrl(), data->GetType()});
    }
    return tabs;
}

void TabKeeper::ShowEarlierTabs()
{
    if (m_dialog) {
        m_dialog->raise();
        m_dialog->activateWindow();
        return;
    }
    m_dialog = new EarlierTabsDialog(ReadEarlierSets(), m_loadPicture, m_window);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_dialog, &EarlierTabsDialog::SigOpen, this, &OpenAgain);
    m_dialog->open();
}

void TabKeeper::ShowMissing(int reopened, int expected)
{
    m_notices->Show(
        missingId, NoticeKind::Warning,
        [reopened, expected] {
            if (expected == 0) {
                return tr("What was kept of the tabs of the last run is damaged and could not be read.");
            }
            if (reopened == expected) {
                return tr("What was kept of the tabs of the last run is damaged in part. What could be read "
                          "came back (tabs: %1).")
                    .arg(reopened);
            }
            return tr("%1 of the %2 tabs of the last run came back. All are kept under “Earlier tabs…”.")
                .arg(reopened)
                .arg(expected);
        },
        expected == 0 ? std::vector<NoticeBoard::Action>()
                      : std::vector<NoticeBoard::Action>{
                            {[] { return tr("Earlier tabs…"); }, [this] { ShowEarlierTabs(); }}});
}

void TabKeeper::ShowCare()
{
    m_notices->Show(careId, NoticeKind::Warning, [] {
        return tr("The client ended unexpectedly twice after tabs were reopened. This time every page loads "
                  "only when you select its tab.");
    });
}

void TabKeeper::Retranslate()
{
    m_earlier->setText(tr("&Earlier tabs…"));
}

bool TabKeeper::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_window && event->type() == QEvent::LanguageChange) {
        Retranslate();
    }
    return QObject::eventFilter(watched, event);
}

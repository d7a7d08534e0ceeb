#include "recovery/TabKeeper.h"

#include "notices/NoticeBoard.h"
#include "system/QuestionWatch.h"
#include "system/TimerDelay.h"

#include "browser/TabRouterUrls.h"

#include "EarlierTabsDialog.h"
#include "browser/MainWindow.h"

#include "base/VXRouterProtocol.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QEvent>
#include <QtCore/QUrl>
#include <QtWidgets/QAction>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

// What the client tells modules that keep tabs. It works without any.
const QString UpdateUrl = QStringLiteral("tl://autorun/update");
const QString CleanUrl = QStringLiteral("tl://autorun/clean");
const QString RestartUpdateUrl = QStringLiteral("tl://autorun/restart/update");

const QString UrlParameter = QStringLiteral("url");

const QString MissingId = QStringLiteral("tabs-missing");
const QString CareId = QStringLiteral("tabs-unloaded");

/// With the address, which a person reads and a record leaves out.
TabRecord ToShownTab(TabRecord tab)
{
    const VXRouterProtocol route(tab.routerUrl);
    if (route.Matches(TabRouterUrls::BrowserOpen)) {
        tab.address = QUrl(route.GetWith(UrlParameter));
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

/// Whether the next log-in offers the tabs: the user did not choose this end.
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
                     const PictureLoader& loadPicture, TabReopening::IsKeepersTurn isKeepersTurn,
                     QObject* parent)
    : QObject(parent)
    , m_window(window)
    , m_notices(notices)
    , m_loadPicture(loadPicture)
    , m_earlier(new QAction(this))
    , m_watch(std::make_unique<TimerDelay>())
    , m_record(&m_thread)
    , m_guard(std::make_unique<TimerDelay>())
    , m_reopening(window, &m_guard, questions, std::move(isKeepersTurn))
{
    m_thread.setMaxThreadCount(1);
    m_earlier->setObjectName(QStringLiteral("earlier_tabs_action"));
    connect(m_earlier, &QAction::triggered, this, &TabKeeper::ShowEarlierTabs);
    window->AddTabAction(m_earlier);
    window->installEventFilter(this);
    Retranslate();
    connect(&m_watch, &OpenTabsWatch::SigChanged, this, &TabKeeper::Keep);
    connect(&m_reopening, &TabReopening::SigCareTaken, this, &TabKeeper::ShowCare);
    connect(&m_reopening, &TabReopening::SigMissing, this, &TabKeeper::ShowMissing);
}

TabKeeper::~TabKeeper() = default;

QString TabKeeper::GetUpdateUrl()
{
    return UpdateUrl;
}

void TabKeeper::Show(bool restarted, const std::function<void()>& mainFrameShow)
{
    m_reopening.Run(restarted, mainFrameShow);
    if (m_ending) {
        return;
    }
    m_shown = true;
    m_watch.Start(m_window);
}

void TabKeeper::PrepareEnd()
{
    m_ending = true;
    m_reopening.Cancel();
}

void TabKeeper::KeepOnDisk()
{
    if (!m_watch.IsRunning()) {
        return; // the tabs of the last run may still be on offer
    }
    VXRouterProtocol(UpdateUrl).Execute();
    m_record.KeepNow(GetOpenTabs());
    // The system may end this process the moment it looks idle.
    VXSettingManager::Instance()->Flush();
}

void TabKeeper::BeforeEnd(EndKind kind, const QString& ignoreUrl)
{
    const bool kept = m_watch.IsRunning();
    if (LeavesTabs(kind)) {
        KeepOnDisk();
    }
    m_watch.Stop();
    m_guard.HandleEnd();
    if (kept && kind == EndKind::Restart) {
        KeepForRestart(ignoreUrl);
    }
}

void TabKeeper::AfterMainFrameQuit(EndKind kind)
{
    if (!m_shown || LeavesTabs(kind)) {
        return;
    }
    VXRouterProtocol(CleanUrl).Execute();
    if (kind != EndKind::Restart) {
        m_record.Clear();
    }
}

void TabKeeper::Keep()
{
    VXRouterProtocol(UpdateUrl).Execute();
    m_record.Keep(GetOpenTabs());
}

void TabKeeper::KeepForRestart(const QString& ignoreUrl)
{
    VXRouterProtocol(RestartUpdateUrl).With(QStringLiteral("ignore"), ignoreUrl).Execute();
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
    m_record.KeepNow(tabs);
}

TabSet TabKeeper::GetOpenTabs() const
{
    TabSet tabs;
    tabs.when = QDateTime::currentDateTimeUtc();
    const QVector<TabRecord> open = m_window->GetTabRecords();
    tabs.tabs.reserve(open.size());
    for (int index = 1; index < open.size(); ++index) {
        const TabRecord& tab = open.at(index);
        if (tab.routerUrl.isEmpty()) {
            continue; // nothing brings it back
        }
        if (index == m_window->GetCurrentTab()) {
            tabs.current = tabs.tabs.size();
        }
        tabs.tabs.append({tab.routerUrl, tab.title, tab.iconUrl, tab.type});
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
        MissingId, NoticeKind::Warning,
        [reopened, expected] {
            if (expected == 0) {
                return tr("The saved tabs of your last session are damaged and cannot be read.");
            }
            if (reopened == expected) {
                return tr("Part of the saved tabs of your last session is damaged. The rest is open again "
                          "(tabs: %1).")
                    .arg(reopened);
            }
            return tr("%1 of the %2 tabs of your last session came back. “Earlier tabs…” has all of them.")
                .arg(reopened)
                .arg(expected);
        },
        expected == 0 ? std::vector<NoticeBoard::Action>()
                      : std::vector<NoticeBoard::Action>{
                            {[] { return tr("Earlier tabs…"); }, [this] { ShowEarlierTabs(); }}});
}

void TabKeeper::ShowCare()
{
    m_notices->Show(CareId, NoticeKind::Warning, [] {
        return tr("The client crashed twice after it had reopened your tabs. This time, each page loads only "
                  "when you select its tab.");
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

#include "recovery/TabReopening.h"

#include "TabSetText.h"
#include "recovery/EarlierTabStore.h"
#include "recovery/OpenTabsRecord.h"
#include "recovery/ReopenGuard.h"
#include "system/QuestionWatch.h"

#include "browser/MainWindow.h"

#include "frame-core/IBrowserTab.h"

#include <QtCore/QEvent>
#include <QtCore/QHash>
#include <QtCore/QQueue>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

TabReopening::TabReopening(MainWindow* window, ReopenGuard* guard, QuestionWatch* questions, QObject* parent)
    : QObject(parent), m_window(window), m_guard(guard), m_questions(questions)
{}

TabReopening::~TabReopening() = default;

void TabReopening::Run(bool restarted, const std::function<void()>& mainFrameShow)
{
    m_text = OpenTabsRecord::GetText();
    const TabSetText::Reading reading = TabSetText::Read(m_text);
    m_last = reading.tabs;
    m_whole = reading.whole;
    if (!m_text.isEmpty() && !restarted) {
        // Before anything else: it is there also when this process ends while the user is being asked.
        EarlierTabStore::Add(m_text, EarlierTabStore::Fate::Dropped);
    }
    m_care = m_guard->IsCareNeeded();
    if (m_care) {
        m_window->SetOpenDelayed(true);
        Q_EMIT SigCareTaken();
    }
    // An address may be open more than once; its tabs come back in the order in which they were kept.
    QHash<QString, QQueue<TabRecord>> waiting;
    for (const TabRecord& tab : qAsConst(m_last.tabs)) {
        waiting[tab.routerUrl].enqueue(tab);
    }
    m_window->BeginReopening([waiting](const QString& routerUrl) mutable -> std::optional<TabRecord> {
        const auto found = waiting.find(routerUrl);
        if (found == waiting.end() || found->isEmpty()) {
            return std::nullopt;
        }
        return found->dequeue();
    });
    bool asked = false;
    const QMetaObject::Connection question =
        connect(m_questions, &QuestionWatch::SigAsked, this, [&asked] { asked = true; });
    const int before = m_window->GetTabCount();

    mainFrameShow();

    disconnect(question);
    m_window->EndReopening();
    if (!m_cancelled) {
        TakeOutcome(restarted, before, asked);
    }
}

void TabReopening::Cancel()
{
    m_cancelled = true;
}

void TabReopening::TakeOutcome(bool restarted, int before, bool asked)
{
    const int reopened = m_window->GetTabCount() - before;
    const int expected = m_last.tabs.size();
    m_guard->TakeStart(reopened > 0);
    if (reopened > 0) {
        BringToFront(before);
    }
    if (m_care) {
        // Without tabs to reopen, the start list may still be on its way.
        qApp->installEventFilter(this);
        QTimer::singleShot(reopened > 0 ? 0 : ReopenGuard::critical, this, &TabReopening::EndCare);
    }
    if (m_text.isEmpty()) {
        return;
    }
    const bool missing = reopened < expected;
    // With more than could be read, the module knew better.
    const bool unread = !m_whole && reopened <= expected;
    if (restarted && !missing && !unread) {
        return;
    }
    const auto fate = reopened > 0
                          ? (missing ? EarlierTabStore::Fate::NotWhole : EarlierTabStore::Fate::Reopened)
                      : asked ? EarlierTabStore::Fate::Declined
                              : EarlierTabStore::Fate::Dropped;
    EarlierTabStore::Add(m_text, fate);
    if ((missing || unread) && fate != EarlierTabStore::Fate::Declined) {
        Q_EMIT SigMissing(reopened, expected);
    }
}

void TabReopening::BringToFront(int before)
{
    if (m_care || m_last.current < 0) {
        return;
    }
    const QString wanted = m_last.tabs.at(m_last.current).routerUrl;
    const auto isWanted = [this, &wanted](int index) {
        const IBrowserTab* const tab = m_window->GetTab(index);
        return tab && tab->GetRouterUrl() == wanted;
    };
    // The same place first: an address may be open more than once.
    if (isWanted(before + m_last.current)) {
        m_window->SelectTab(before + m_last.current);
        return;
    }
    for (int index = before; index < m_window->GetTabCount(); ++index) {
        if (isWanted(index)) {
            m_window->SelectTab(index);
            return;
        }
    }
}

bool TabReopening::eventFilter(QObject* watched, QEvent* event)
{
    // From the first touch on, what opens is what the user wants to open.
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress) {
        EndCare();
    }
    return QObject::eventFilter(watched, event);
}

void TabReopening::EndCare()
{
    qApp->removeEventFilter(this);
    m_window->SetOpenDelayed(false);
}

#include "app/tabs/ReturningTabs.h"

#include "app/QuestionWatch.h"
#include "app/tabs/EarlierTabs.h"
#include "app/tabs/KeptTabsText.h"
#include "app/tabs/ReopenGuard.h"
#include "app/tabs/RunningTabs.h"

#include "browser/MainWindow.h"

#include "frame-core/IBrowserTab.h"

#include <QtCore/QEvent>
#include <QtCore/QHash>
#include <QtCore/QQueue>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

ReturningTabs::ReturningTabs(MainWindow* window, ReopenGuard* guard, QuestionWatch* questions,
                             QObject* parent)
    : QObject(parent), m_window(window), m_guard(guard), m_questions(questions)
{}

ReturningTabs::~ReturningTabs() = default;

void ReturningTabs::Run(bool restarted, const std::function<void()>& mainFrameShow)
{
    m_text = RunningTabs::GetText();
    const KeptTabsText::Reading reading = KeptTabsText::Read(m_text);
    m_last = reading.tabs;
    m_whole = reading.whole;
    if (!m_text.isEmpty() && !restarted) {
        // Before anything else: it is there also when this process ends while the user is being asked.
        EarlierTabs::Add(m_text, EarlierTabs::Fate::Dropped);
    }
    m_care = m_guard->IsCareNeeded();
    if (m_care) {
        m_window->SetOpenDelayed(true);
        Q_EMIT SigCareTaken();
    }
    // An address may be open more than once; its tabs come back in the order in which they were kept.
    QHash<QString, QQueue<SavedFace>> faces;
    for (const KeptTab& tab : qAsConst(m_last.tabs)) {
        faces[tab.routerUrl].enqueue({tab.title, tab.iconUrl});
    }
    m_window->SetSavedFaces([faces](const QString& routerUrl) mutable {
        const auto found = faces.find(routerUrl);
        if (found == faces.end()) {
            return SavedFace();
        }
        return found->size() > 1 ? found->dequeue() : found->head();
    });
    m_window->SetReopening(true);
    bool asked = false;
    const QMetaObject::Connection question =
        connect(m_questions, &QuestionWatch::SigAsked, this, [&asked] { asked = true; });
    const int before = m_window->GetTabCount();

    mainFrameShow();

    disconnect(question);
    m_window->SetReopening(false);
    m_window->SetSavedFaces({});
    if (!m_cancelled) {
        TakeOutcome(restarted, before, asked);
    }
}

void ReturningTabs::Cancel()
{
    m_cancelled = true;
}

void ReturningTabs::TakeOutcome(bool restarted, int before, bool asked)
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
        QTimer::singleShot(reopened > 0 ? 0 : ReopenGuard::critical, this, &ReturningTabs::EndCare);
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
    const auto fate = reopened > 0 ? (missing ? EarlierTabs::Fate::NotWhole : EarlierTabs::Fate::Reopened)
                      : asked      ? EarlierTabs::Fate::Declined
                                   : EarlierTabs::Fate::Dropped;
    EarlierTabs::Add(m_text, fate);
    if ((missing || unread) && fate != EarlierTabs::Fate::Declined) {
        Q_EMIT SigMissing(reopened, expected);
    }
}

void ReturningTabs::BringToFront(int before)
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

bool ReturningTabs::eventFilter(QObject* watched, QEvent* event)
{
    // From the first touch on, what opens is what the user wants to open.
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress) {
        EndCare();
    }
    return QObject::eventFilter(watched, event);
}

void ReturningTabs::EndCare()
{
    qApp->removeEventFilter(this);
    m_window->SetOpenDelayed(false);
}

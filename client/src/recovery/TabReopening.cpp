#include "recovery/TabReopening.h"

#include "ReopenedSet.h"
#include "TabSetText.h"
#include "recovery/EarlierTabStore.h"
#include "recovery/OpenTabsRecord.h"
#include "recovery/ReopenGuard.h"
#include "system/QuestionWatch.h"

#include "browser/MainWindow.h"

#include "frame-core/IBrowserTab.h"

#include <QtCore/QEvent>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <optional>
#include <utility>

TabReopening::TabReopening(MainWindow* window, ReopenGuard* guard, QuestionWatch* questions,
                           IsKeepersTurn isKeepersTurn, QObject* parent)
    : QObject(parent)
    , m_window(window)
    , m_guard(guard)
    , m_questions(questions)
    , m_isKeepersTurn(std::move(isKeepersTurn))
{}

TabReopening::~TabReopening() = default;

void TabReopening::Run(bool restarted, const std::function<void()>& mainFrameShow)
{
    ReadRecord(restarted);
    BeginCare();
    ReopenedSet set(m_last);
    int first = -1; // where the reopened tabs begin
    m_window->BeginReopening([this, &set, &first](const QString& routerUrl) -> std::optional<TabRecord> {
        if (!m_isKeepersTurn()) {
            return std::nullopt;
        }
        if (first < 0) {
            first = m_window->GetTabCount();
        }
        return set.Claim(routerUrl);
    });
    const auto asked = connect(m_questions, &QuestionWatch::SigAsked, this, &TabReopening::HandleAsked);
    const auto answered =
        connect(m_questions, &QuestionWatch::SigAnswered, this, &TabReopening::HandleAnswered);

    mainFrameShow();

    disconnect(asked);
    disconnect(answered);
    m_window->EndReopening();
    if (!m_cancelled) {
        HandleOutcome(set, restarted, first);
    }
}

void TabReopening::Cancel()
{
    m_cancelled = true;
}

void TabReopening::ReadRecord(bool restarted)
{
    m_text = OpenTabsRecord::GetText();
    const TabSetText::Reading reading = TabSetText::Read(m_text);
    m_last = reading.tabs;
    m_whole = reading.whole;
    m_answer = Answer::NotAsked;
    if (!m_text.isEmpty() && !restarted) {
        // First of all, so that the set is there even when this process ends while the user is being asked.
        EarlierTabStore::Add(m_text, EarlierTabStore::Fate::Dropped);
    }
}

void TabReopening::BeginCare()
{
    m_care = m_guard->IsCareNeeded();
    if (m_care) {
        m_window->SetOpenDelayed(true);
        Q_EMIT SigCareTaken();
    }
}

void TabReopening::HandleAsked(const QString& text)
{
    if (m_answer == Answer::NotAsked && m_isKeepersTurn()) {
        m_question = text;
        m_answer = Answer::Open;
    }
}

void TabReopening::HandleAnswered(const QString& text, const QString& answer)
{
    if (m_answer == Answer::Open && text == m_question) {
        m_answer = answer == QLatin1String("Yes") ? Answer::Yes : Answer::No;
    }
}

void TabReopening::HandleOutcome(const ReopenedSet& set, bool restarted, int first)
{
    const int reopened = set.GetReopened();
    const int expected = m_last.tabs.size();
    m_guard->HandleStart(reopened > 0);
    if (reopened > 0) {
        BringToFront(set, first);
    }
    if (m_care) {
        // Without tabs to reopen, the start list may still be on its way.
        qApp->installEventFilter(this);
        QTimer::singleShot(reopened > 0 ? 0 : ReopenGuard::Critical, this, &TabReopening::EndCare);
    }
    if (m_text.isEmpty()) {
        return;
    }
    const int lost = set.GetLost();
    // With more tabs than the damaged record gave away, the module knew better.
    const bool unread = !m_whole && reopened <= expected;
    if (restarted && lost == 0 && !unread) {
        return;
    }
    const bool declined = m_answer == Answer::No && reopened == 0;
    auto fate = EarlierTabStore::Fate::Dropped;
    if (declined) {
        fate = EarlierTabStore::Fate::Declined;
    } else if (reopened > 0 || m_answer == Answer::Yes) {
        fate = lost > 0 ? EarlierTabStore::Fate::NotWhole : EarlierTabStore::Fate::Reopened;
    }
    EarlierTabStore::Add(m_text, fate);
    if ((lost > 0 || unread) && !declined) {
        Q_EMIT SigMissing(expected - lost, expected);
    }
}

void TabReopening::BringToFront(const ReopenedSet& set, int first)
{
    if (m_care || m_last.current < 0) {
        return;
    }
    const QString wanted = m_last.tabs.at(m_last.current).routerUrl;
    const auto isWanted = [this, &wanted](int index) {
        const IBrowserTab* const tab = m_window->GetTab(index);
        return tab && tab->GetRouterUrl() == wanted;
    };
    // The same tab first: an address may be open more than once.
    if (set.GetFront() >= 0 && isWanted(first + set.GetFront())) {
        m_window->SelectTab(first + set.GetFront());
        return;
    }
    for (int index = first; index < m_window->GetTabCount(); ++index) {
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

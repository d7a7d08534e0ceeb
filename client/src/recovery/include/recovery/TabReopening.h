#pragma once

#include "recovery/TabSet.h"

#include <QtCore/QObject>
#include <QtCore/QString>

#include <functional>

class MainWindow;
class QuestionWatch;
class ReopenGuard;
class ReopenedSet;

/// Stands by while the modules decide, in their `MainFrameShow`, whether the tabs of the last run come back:
/// gives reopened tabs their saved titles and icons, keeps pages from loading where that is wise, brings the
/// tab to the front that was there, and stores under "Earlier tabs" what did not come back. What other
/// modules open or ask meanwhile is none of its business. GUI thread.
class TabReopening final : public QObject
{
    Q_OBJECT

public:
    /// Whether the module whose hook is running keeps tabs: what it opens now is reopened, and what it asks
    /// is whether to reopen.
    using IsKeepersTurn = std::function<bool()>;

    /// Owns none of the objects.
    TabReopening(MainWindow* window, ReopenGuard* guard, QuestionWatch* questions,
                 IsKeepersTurn isKeepersTurn, QObject* parent = nullptr);
    ~TabReopening() override;

    /// Calls `mainFrameShow`, in which modules may ask the user and open what they reopen.
    /// `restarted`: this process took over from one that restarted itself.
    void Run(bool restarted, const std::function<void()>& mainFrameShow);
    /// Call while `mainFrameShow` runs, when the client is about to end: closing the question then does not
    /// count as an answer, and the record of the last run stays as it is.
    void Cancel();

Q_SIGNALS:
    /// Nothing loads by itself, because the client died several times after tabs were reopened.
    void SigCareTaken();
    /// Of `expected` tabs only `reopened` came back although the user did not decline, or the record of them
    /// is damaged: `expected` is then what could be read, and may have come back whole. "Earlier tabs" has
    /// the set.
    void SigMissing(int reopened, int expected);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What the user said to the question whether to reopen.
    enum class Answer
    {
        NotAsked,
        Open, ///< the question is on the screen
        Yes,
        No
    };

    void ReadRecord(bool restarted);
    void BeginCare();
    void HandleAsked(const QString& text);
    void HandleAnswered(const QString& text, const QString& answer);
    void HandleOutcome(const ReopenedSet& set, bool restarted, int first);
    void BringToFront(const ReopenedSet& set, int first);
    void EndCare();

    MainWindow* m_window;
    ReopenGuard* m_guard;
    QuestionWatch* m_questions;
    IsKeepersTurn m_isKeepersTurn;
    TabSet m_last;
    QString m_text;     // of the record, as it was stored
    QString m_question; // whether to reopen
    Answer m_answer = Answer::NotAsked;
    bool m_whole = true;
    bool m_care = false;
    bool m_cancelled = false;
};

#pragma once

#include "recovery/TabSet.h"

#include <QtCore/QObject>

#include <functional>

class MainWindow;
class QuestionWatch;
class ReopenGuard;

/// Stands by while the modules decide, in their `MainFrameShow`, whether tabs of the run before come back:
/// gives reopened tabs their saved titles and icons, keeps pages from loading where that is wise, brings the
/// tab to the front that was there, and keeps what did not come back under "Earlier tabs". GUI thread.
class TabReopening final : public QObject
{
    Q_OBJECT

public:
    /// Nothing is owned.
    TabReopening(MainWindow* window, ReopenGuard* guard, QuestionWatch* questions, QObject* parent = nullptr);
    ~TabReopening() override;

    /// Calls `mainFrameShow`, which may ask the user and opens what it reopens before it returns.
    /// `restarted`: this process took over from one that restarted itself.
    void Run(bool restarted, const std::function<void()>& mainFrameShow);
    /// While `mainFrameShow` runs: the client is about to end, and a question that is closed for that was
    /// not answered. What was kept of the run before stays as it is.
    void Cancel();

Q_SIGNALS:
    /// Nothing loads by itself, because the client died several times after tabs were reopened.
    void SigCareTaken();
    /// Of `expected` tabs only `reopened` came back without anybody having been asked, or the record of them
    /// is damaged: `expected` is then what could be read, and may have come back whole. What there is stands
    /// under "Earlier tabs".
    void SigMissing(int reopened, int expected);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void TakeOutcome(bool restarted, int before, bool asked);
    void BringToFront(int before);
    void EndCare();

    MainWindow* m_window;
    ReopenGuard* m_guard;
    QuestionWatch* m_questions;
    TabSet m_last;
    QString m_text;
    bool m_whole = true;
    bool m_care = false;
    bool m_cancelled = false;
};

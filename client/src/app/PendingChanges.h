#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <functional>

/// Waits for what the user changed a moment ago and is still on its way to the gateway. GUI thread.
class PendingChanges final : public QObject
{
    Q_OBJECT

public:
    /// `isBusy` tells whether a change is on its way; call `Check` whenever that may have changed.
    explicit PendingChanges(std::function<bool()> isBusy, QObject* parent = nullptr);

    /// Calls `action` once, now when nothing is on its way, and after `limit` [ms] at the latest.
    void WaitThen(int limit, std::function<void()> action);
    /// Looks again from the event loop: what ended a call may begin another.
    void Check();

private:
    void Finish();

    std::function<bool()> m_isBusy;
    std::function<void()> m_action; // empty: nobody waits
    QTimer m_limit;
};

#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <functional>

/// Waits for changes of the user that are still on their way to the gateway. GUI thread.
class PendingChanges final : public QObject
{
    Q_OBJECT

public:
    /// `isBusy` tells whether a change is on its way; call `Check` whenever that may have changed.
    explicit PendingChanges(std::function<bool()> isBusy, QObject* parent = nullptr);

    /// Calls `action` once: immediately if nothing is on its way, and after `limit` [ms] at the latest.
    void WaitThen(int limit, std::function<void()> action);
    /// Checks again from the event loop, because the end of a call may start another.
    void Check();

private:
    void Finish();

    std::function<bool()> m_isBusy;
    std::function<void()> m_action; // empty while nobody waits
    QTimer m_limit;
};

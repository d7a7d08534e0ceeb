#pragma once

#include <QtCore/QObject>

#include <functional>
#include <memory>

class IDelay;

/// Counts how often in a row the client died shortly after it had reopened tabs, so that a page that takes
/// the client down cannot do so at every start. Per user, in the settings store. GUI thread.
class ReopenGuard final : public QObject
{
    Q_OBJECT

public:
    static constexpr int critical = 30000; ///< [ms] after reopening; who lives longer did not die of it
    static constexpr int deathLimit = 2;

    explicit ReopenGuard(std::unique_ptr<IDelay> delay, QObject* parent = nullptr);
    ~ReopenGuard() override;

    /// Once the user is known, before anything is reopened: whether nothing is to load by itself.
    bool IsCareNeeded();
    /// What was to be reopened has been, in this moment, or nothing was.
    void TakeStart(bool reopened);
    /// The client ends because somebody wants it to: it has not died. Before `TakeStart` that says nothing,
    /// and the next start is as careful as this one would have been.
    void TakeEnd();

private:
    std::unique_ptr<IDelay> m_delay;
    int m_deaths = 0;
    bool m_started = false;
};

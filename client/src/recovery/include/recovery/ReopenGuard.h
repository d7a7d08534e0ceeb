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
    static constexpr int Critical = 30000; ///< [ms]; a client that dies later did not die of its tabs
    static constexpr int DeathLimit = 2;

    explicit ReopenGuard(std::unique_ptr<IDelay> delay, QObject* parent = nullptr);
    ~ReopenGuard() override;

    /// Call once the user is known, before anything is reopened. Whether nothing may load by itself.
    bool IsCareNeeded();
    /// Call when reopening has just finished; `reopened` says whether any tab was.
    void HandleStart(bool reopened);
    /// The client ends on purpose: it has not died. Before `HandleStart` this says nothing, and the next
    /// start is as careful as this one would have been.
    void HandleEnd();

private:
    std::unique_ptr<IDelay> m_delay;
    int m_deaths = 0;
    bool m_started = false;
};

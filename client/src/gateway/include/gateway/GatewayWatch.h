#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include <functional>
#include <memory>

class IDelay;
struct HttpCallReport;

/// Knows from how the calls end whether the gateway answers. While it does not, asks again after 5, 10, 20,
/// 40 and then every 60 seconds. GUI thread.
class GatewayWatch final : public QObject
{
    Q_OBJECT

public:
    /// `ask` starts a call whose end comes in through `HandleReport`.
    GatewayWatch(std::unique_ptr<IDelay> delay, std::function<void()> ask, QObject* parent = nullptr);
    ~GatewayWatch() override;

    /// A call has ended.
    void HandleReport(const HttpCallReport& report);
    bool IsLost() const noexcept { return m_lost; }
    /// Asks now instead of at the end of the pause. Does nothing while the gateway answers.
    void AskNow();

Q_SIGNALS:
    /// A call failed because of the network or the server. `fromCache`: a cached reply stood in for it.
    /// Sent again when that, or the failure, changes.
    void SigLost(const QString& failure, bool fromCache);
    /// The gateway answers again, if only with a refusal.
    void SigFound();

private:
    void Ask();
    void Schedule();

    std::unique_ptr<IDelay> m_delay;
    std::function<void()> m_ask;
    QString m_failure;
    int m_round = 0;
    bool m_lost = false;
    bool m_fromCache = false;
    bool m_scheduled = false;
};

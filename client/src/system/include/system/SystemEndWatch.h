#pragma once

#include <QtCore/QObject>

/// Tells when the system is about to end the session (shutdown, log-off), and on Unix when it ends the client
/// with SIGTERM or SIGHUP. That the session is over for good, Qt tells by ending the event loop. Qt no longer
/// asks the windows for their consent, which none of them could refuse without stopping a shutdown. Made
/// once, after the QApplication. GUI thread.
class SystemEndWatch final : public QObject
{
    Q_OBJECT

public:
    explicit SystemEndWatch(QObject* parent = nullptr);
    ~SystemEndWatch() override;

Q_SIGNALS:
    /// The system asks whether the session may end. Somebody may still refuse, and then it goes on; but the
    /// process may also be ended soon after this returns.
    void SigSystemEndPlanned();
    /// The process may be ended soon after this returns; may come more than once.
    void SigSystemEnd();

private:
    /// Empty where the system knows no signals.
    void StartSignals();
    void StopSignals();
};

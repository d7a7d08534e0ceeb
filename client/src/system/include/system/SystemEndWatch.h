#pragma once

#include <QtCore/QObject>

/// Reports when the system is about to end the session (shutdown, log-off), and on Unix when it ends the
/// client with SIGTERM or SIGHUP. Qt ends the event loop when the session is really over. Turns off Qt's
/// habit of asking every window for consent, because a window that refuses would stop a shutdown. Make one,
/// after the QApplication. GUI thread.
class SystemEndWatch final : public QObject
{
    Q_OBJECT

public:
    explicit SystemEndWatch(QObject* parent = nullptr);
    ~SystemEndWatch() override;

Q_SIGNALS:
    /// The system asks whether the session may end. Another program may still refuse; if none does, the
    /// process may be ended soon after this returns.
    void SigSystemEndPlanned();
    /// The process may be ended soon after this returns; may come more than once.
    void SigSystemEnd();

private:
    /// Does nothing on systems without signals.
    void StartSignals();
    void StopSignals();
};

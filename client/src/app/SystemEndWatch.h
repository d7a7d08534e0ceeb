#pragma once

#include <QtCore/QObject>

/// Tells when the system ends the session: at its request to the application (shutdown, log-off), and on
/// Unix on SIGTERM and SIGHUP. Made once, after the QApplication. GUI thread.
class SystemEndWatch final : public QObject
{
    Q_OBJECT

public:
    explicit SystemEndWatch(QObject* parent = nullptr);
    ~SystemEndWatch() override;

Q_SIGNALS:
    /// The process may be ended soon after this returns; may come more than once.
    void SigSystemEnd();

private:
    /// Empty where the system knows no signals.
    void StartSignals();
    void StopSignals();
};

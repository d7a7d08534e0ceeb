#pragma once

#include <QtCore/QProcess>
#include <QtCore/QString>

/// A session bus of the test's own with an unlocked key store. The destructor ends both.
class KeyStoreDaemon final
{
public:
    /// `folder` receives the key store's files.
    explicit KeyStoreDaemon(const QString& folder);
    ~KeyStoreDaemon();

    KeyStoreDaemon(const KeyStoreDaemon&) = delete;
    KeyStoreDaemon& operator=(const KeyStoreDaemon&) = delete;

    /// The value for DBUS_SESSION_BUS_ADDRESS; empty when the bus or the key store did not start.
    QString GetBusAddress() const { return m_address; }
    /// Waits until a program has searched for a secret and all calls have been answered; false after a
    /// minute.
    [[nodiscard]] bool WaitForAnswers();

private:
    bool StartMonitor(const QString& address);
    bool IsAnswered() const;

    QProcess m_bus;
    QProcess m_store;
    QProcess m_monitor;
    QByteArray m_seen; ///< the monitor's output: all messages on the bus
    QString m_address;
};

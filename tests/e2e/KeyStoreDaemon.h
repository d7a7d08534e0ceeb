#pragma once

#include <QtCore/QProcess>
#include <QtCore/QString>

/// A session bus with an unlocked key store of the test's own on it. Ends with the object.
class KeyStoreDaemon final
{
public:
    /// The key store's files go to `folder`.
    explicit KeyStoreDaemon(const QString& folder);
    ~KeyStoreDaemon();

    KeyStoreDaemon(const KeyStoreDaemon&) = delete;
    KeyStoreDaemon& operator=(const KeyStoreDaemon&) = delete;

    /// The value for DBUS_SESSION_BUS_ADDRESS; empty when bus or key store did not start.
    QString GetBusAddress() const { return m_address; }
    /// Waits until somebody has looked for a secret, and has an answer to all that was asked; false when that
    /// does not happen within a minute.
    [[nodiscard]] bool WaitForAnswers();

private:
    bool StartMonitor(const QString& address);
    bool IsAnswered() const;

    QProcess m_bus;
    QProcess m_store;
    QProcess m_monitor;
    QByteArray m_seen; ///< by the monitor: all that went over the bus
    QString m_address;
};

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

private:
    QProcess m_bus;
    QProcess m_store;
    QString m_address;
};

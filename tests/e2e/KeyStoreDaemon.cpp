#include "KeyStoreDaemon.h"

#include <QtTest/QTest>

namespace {

void End(QProcess& process)
{
    process.terminate();
    if (!process.waitForFinished(5000)) {
        process.kill();
        process.waitForFinished(5000);
    }
}

} // namespace

KeyStoreDaemon::KeyStoreDaemon(const QString& folder)
{
    m_bus.start(QStringLiteral("dbus-daemon"),
                {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                 QStringLiteral("--address=unix:dir=%1").arg(folder)});
    QByteArray address;
    const bool ended = QTest::qWaitFor(
        [this, &address] {
            address += m_bus.readAllStandardOutput();
            return address.endsWith('\n') || m_bus.state() == QProcess::NotRunning;
        },
        20000);
    if (!ended || !address.endsWith('\n')) {
        return;
    }

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QString::fromUtf8(address.trimmed()));
    environment.insert(QStringLiteral("HOME"), folder);
    environment.insert(QStringLiteral("XDG_DATA_HOME"), folder + QStringLiteral("/data"));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder);
    m_store.setProcessEnvironment(environment);
    m_store.start(QStringLiteral("gnome-keyring-daemon"),
                  {QStringLiteral("--foreground"), QStringLiteral("--unlock"),
                   QStringLiteral("--components=secrets"),
                   QStringLiteral("--control-directory=%1/keyring").arg(folder)});
    m_store.write("test");
    m_store.closeWriteChannel();

    // The key store is there once its name is taken on the bus.
    const bool ready = QTest::qWaitFor(
        [&environment] {
            QProcess question;
            question.setProcessEnvironment(environment);
            question.start(QStringLiteral("dbus-send"),
                           {QStringLiteral("--session"), QStringLiteral("--print-reply"),
                            QStringLiteral("--dest=org.freedesktop.DBus"),
                            QStringLiteral("/org/freedesktop/DBus"),
                            QStringLiteral("org.freedesktop.DBus.NameHasOwner"),
                            QStringLiteral("string:org.freedesktop.secrets")});
            return question.waitForFinished(5000) &&
                   question.readAllStandardOutput().contains("boolean true");
        },
        20000);
    if (ready) {
        m_address = QString::fromUtf8(address.trimmed());
    }
}

KeyStoreDaemon::~KeyStoreDaemon()
{
    End(m_store);
    End(m_bus);
}

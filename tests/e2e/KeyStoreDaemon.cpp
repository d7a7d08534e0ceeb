#include "KeyStoreDaemon.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
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
        60000);
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

    // The key store is ready when its name has an owner on the bus.
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
        60000);
    if (ready && StartMonitor(QString::fromUtf8(address.trimmed()))) {
        m_address = QString::fromUtf8(address.trimmed());
    }
}

bool KeyStoreDaemon::WaitForAnswers()
{
    return QTest::qWaitFor(
        [this] {
            m_seen += m_monitor.readAllStandardOutput();
            return IsAnswered();
        },
        60000);
}

bool KeyStoreDaemon::StartMonitor(const QString& address)
{
    m_monitor.start(QStringLiteral("dbus-monitor"), {QStringLiteral("--address"), address});
    // A connection that becomes a monitor loses its name on the bus.
    return QTest::qWaitFor(
        [this] {
            m_seen += m_monitor.readAllStandardOutput();
            return m_seen.contains("member=NameLost") || m_monitor.state() == QProcess::NotRunning;
        },
        60000);
}

bool KeyStoreDaemon::IsAnswered() const
{
    static const QRegularExpression call(QStringLiteral(
        R"(^method call .*sender=(\S+) .*serial=(\d+) .*interface=org\.freedesktop\.Secret\.\w+; member=(\w+))"));
    static const QRegularExpression answer(
        QStringLiteral(R"(^(?:method return|error) .*destination=(\S+) .*reply_serial=(\d+))"));
    bool looked = false;
    QSet<QPair<QString, QString>> waiting;
    const QList<QByteArray> lines = m_seen.split('\n');
    for (const QByteArray& bytes : lines) {
        const QString line = QString::fromUtf8(bytes);
        const QRegularExpressionMatch asked = call.match(line);
        if (asked.hasMatch()) {
            looked = looked || asked.captured(3) == QLatin1String("SearchItems");
            waiting.insert({asked.captured(1), asked.captured(2)});
            continue;
        }
        const QRegularExpressionMatch answered = answer.match(line);
        if (answered.hasMatch()) {
            waiting.remove({answered.captured(1), answered.captured(2)});
        }
    }
    return looked && waiting.isEmpty();
}

KeyStoreDaemon::~KeyStoreDaemon()
{
    End(m_monitor);
    End(m_store);
    End(m_bus);
}

#include "ClientProcess.h"

#include "Programs.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

ClientProcess::ClientProcess(const QString& display, const QString& folder)
    : m_folder(folder)
    , m_trace(folder + QStringLiteral("/trace.jsonl"))
    , m_environment(QProcessEnvironment::systemEnvironment())
{
    m_environment.insert(QStringLiteral("DISPLAY"), display);
    m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    m_environment.insert(QStringLiteral("HOME"), folder);
#ifdef Q_OS_UNIX
    if (geteuid() == 0) {
        m_environment.insert(QStringLiteral("QTWEBENGINE_DISABLE_SANDBOX"), QStringLiteral("1"));
        m_environment.insert(QStringLiteral("QTWEBENGINE_CHROMIUM_FLAGS"),
                             QStringLiteral("--no-sandbox --disable-gpu"));
    }
#endif
}

ClientProcess::~ClientProcess()
{
    Stop();
}

void ClientProcess::SetEnvironment(const QString& name, const QString& value)
{
    m_environment.insert(name, value);
}

void ClientProcess::Start(const QStringList& arguments)
{
    QFile::remove(m_trace);
    m_process.setProcessEnvironment(m_environment);
    m_process.start(Programs::Client(),
                    QStringList{QStringLiteral("--profile"), m_folder + QStringLiteral("/profile"),
                                QStringLiteral("--modules"), Programs::Modules(), QStringLiteral("--trace"),
                                m_trace} +
                        arguments);
}

void ClientProcess::StartWithLogin(const QString& gateway, const QString& pin, const QByteArray& password,
                                   const QStringList& arguments)
{
    const QString passwordFile = m_folder + QStringLiteral("/password");
    QFile file(passwordFile);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        file.write(password);
    }
    file.close();
    Start(QStringList{QStringLiteral("--gateway"), gateway, QStringLiteral("--pin"), pin,
                      QStringLiteral("--password-file"), passwordFile} +
          arguments);
}

bool ClientProcess::Stop()
{
    if (m_process.state() == QProcess::NotRunning) {
        return true;
    }
    m_process.terminate();
    if (WaitForEnd(20000)) {
        return true;
    }
    m_process.kill();
    m_process.waitForFinished(5000);
    return false;
}

bool ClientProcess::WaitForEnd(int timeout)
{
    return QTest::qWaitFor([this] { return m_process.state() == QProcess::NotRunning; }, timeout);
}

QVector<QJsonObject> ClientProcess::GetEvents() const
{
    QVector<QJsonObject> events;
    QFile file(m_trace);
    if (!file.open(QIODevice::ReadOnly)) {
        return events;
    }
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray& line : lines) {
        const QJsonDocument document = QJsonDocument::fromJson(line);
        if (document.isObject()) {
            events.append(document.object());
        }
    }
    return events;
}

QVector<QJsonObject> ClientProcess::GetEvents(const QString& event) const
{
    QVector<QJsonObject> events = GetEvents();
    events.erase(std::remove_if(events.begin(), events.end(),
                                [&event](const QJsonObject& candidate) {
                                    return candidate.value(QStringLiteral("event")).toString() != event;
                                }),
                 events.end());
    return events;
}

bool ClientProcess::WaitFor(const std::function<bool(const QVector<QJsonObject>&)>& condition,
                            int timeout) const
{
    bool met = false;
    const bool ended = QTest::qWaitFor(
        [this, &condition, &met] {
            const bool running = m_process.state() != QProcess::NotRunning;
            met = condition(GetEvents());
            return met || !running;
        },
        timeout);
    return ended && met;
}

bool ClientProcess::WaitForEvents(const QString& event, int count, int timeout) const
{
    return WaitFor(
        [&event, count](const QVector<QJsonObject>& events) {
            return std::count_if(events.begin(), events.end(), [&event](const QJsonObject& candidate) {
                       return candidate.value(QStringLiteral("event")).toString() == event;
                   }) >= count;
        },
        timeout);
}

QByteArray ClientProcess::GetErrorOutput()
{
    return m_process.readAllStandardError();
}

#include "ClientProcess.h"

#include "Desktop.h"
#include "Programs.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <csignal>
#include <unistd.h>
#endif

namespace {

constexpr int Patience = 60000; // [ms]; for what is quick on an idle machine

QByteArray ReadAll(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Also for a process that is not our child: a dead one has no command line.
bool IsGone(qint64 processId)
{
    return ReadAll(QStringLiteral("/proc/%1/cmdline").arg(processId)).isEmpty();
}

bool CopyFiles(const QString& from, const QString& to)
{
    const QDir source(from);
    const QStringList files = source.entryList(QDir::Files);
    return !files.isEmpty() && std::all_of(files.begin(), files.end(), [&](const QString& file) {
        return QFile::copy(source.filePath(file), QDir(to).filePath(file));
    });
}

} // namespace

ClientProcess::ClientProcess(const QString& display, const QString& folder)
    : m_display(display)
    , m_folder(folder)
    , m_modules(Programs::Modules())
    , m_trace(folder + QStringLiteral("/trace.jsonl"))
    , m_errors(folder + QStringLiteral("/errors.txt"))
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
    if (IsRunning() && !Stop()) {
        Kill();
    }
}

void ClientProcess::SetEnvironment(const QString& name, const QString& value)
{
    m_environment.insert(name, value);
}

bool ClientProcess::AddModule(const QString& folder)
{
    if (m_modules == Programs::Modules()) {
        const QString modules = m_folder + QStringLiteral("/modules");
        if (!QDir().mkpath(modules) || !CopyFiles(m_modules, modules)) {
            return false;
        }
        m_modules = modules;
    }
    return CopyFiles(folder, m_modules);
}

void ClientProcess::Start(const QStringList& arguments, const QByteArray& input)
{
    QFile::remove(m_trace);
    m_killed = false;
    m_process.setProcessEnvironment(m_environment);
    // Files, not pipes: pipes would close with the first process while the one in its place still uses them.
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(m_errors);
    m_process.start(Programs::Client(),
                    QStringList{QStringLiteral("--profile"), m_folder + QStringLiteral("/profile"),
                                QStringLiteral("--modules"), m_modules, QStringLiteral("--trace"), m_trace} +
                        arguments);
    m_process.waitForStarted();
    m_firstProcess = m_process.processId();
    m_process.write(input);
    m_process.closeWriteChannel();
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
    Signal(false);
    return WaitForEnd(Patience);
}

bool ClientProcess::Quit()
{
    const Desktop desktop(m_display);
    return desktop.WaitForWindow(GetProcessId()) && desktop.Press({QStringLiteral("ctrl+q")}) &&
           WaitForEnd(Patience);
}

void ClientProcess::Kill()
{
    const qint64 processId = GetProcessId();
    Signal(true);
    m_killed = true;
    m_process.waitForFinished(Patience);
    // The next client needs the profile for itself.
    static_cast<void>(QTest::qWaitFor([processId] { return IsGone(processId); }, Patience));
}

bool ClientProcess::IsRunning() const
{
    if (IsFirstProcessRunning() || m_killed) {
        return !m_killed;
    }
    // A process that the client started in its place is not our child, so read its trace.
    bool running = false;
    for (const QJsonObject& event : GetEvents()) {
        const QString name = event.value(QStringLiteral("event")).toString();
        if (name == QLatin1String("start")) {
            running = qint64(event.value(QStringLiteral("pid")).toDouble()) != m_firstProcess;
        } else if (name == QLatin1String("exit")) {
            const QString kind = event.value(QStringLiteral("kind")).toString();
            running = kind == QLatin1String("restart") || kind == QLatin1String("log out") ||
                      kind == QLatin1String("refused");
        }
    }
    return running;
}

qint64 ClientProcess::GetProcessId() const
{
    const QVector<QJsonObject> starts = GetEvents(QStringLiteral("start"));
    return starts.isEmpty() ? m_firstProcess : qint64(starts.last().value(QStringLiteral("pid")).toDouble());
}

void ClientProcess::Signal(bool kill)
{
    // During a restart there are two processes; the first is about to end, so signal the second.
    const qint64 processId = GetProcessId();
    if (processId == m_firstProcess) {
        kill ? m_process.kill() : m_process.terminate();
        return;
    }
#ifdef Q_OS_UNIX
    if (IsRunning()) {
        ::kill(static_cast<pid_t>(processId), kill ? SIGKILL : SIGTERM);
    }
#endif
}

bool ClientProcess::WaitForEnd(int timeout)
{
    return QTest::qWaitFor([this] { return !IsRunning(); }, timeout);
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
            const bool running = IsRunning();
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

QByteArray ClientProcess::GetErrorOutput() const
{
    return ReadAll(m_errors);
}

QByteArray ClientProcess::GetTrace() const
{
    return ReadAll(m_trace);
}

#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <functional>

/// The built client in a real window, watched through its trace. The destructor ends it, by force if
/// necessary.
class ClientProcess final
{
public:
    /// `display` is the value for DISPLAY; `folder` holds profile, trace and password file.
    ClientProcess(const QString& display, const QString& folder);
    ~ClientProcess();

    ClientProcess(const ClientProcess&) = delete;
    ClientProcess& operator=(const ClientProcess&) = delete;

    /// Sets a variable in the environment of every later start.
    void SetEnvironment(const QString& name, const QString& value);
    /// Makes every later start load the modules in `folder` as well: copies them and the built modules into a
    /// folder of this client and passes that as --modules. False when a copy fails.
    [[nodiscard]] bool AddModule(const QString& folder);
    /// Starts the client with its modules, a trace of its own and `arguments`. Its standard input gives
    /// `input` and then ends.
    void Start(const QStringList& arguments, const QByteArray& input = QByteArray());
    /// Starts the client and logs in by pin and password.
    void StartWithLogin(const QString& gateway, const QString& pin, const QByteArray& password,
                        const QStringList& arguments = {});

    /// Ends the client as the end of the system's session does (SIGTERM). False when it does not end within a
    /// minute.
    bool Stop();
    /// Quits as a user does (Ctrl+Q). False when the client does not end within a minute.
    bool Quit();
    /// Kills the client immediately.
    void Kill();
    /// Whether the client runs, or the process that it started in its place.
    bool IsRunning() const;
    /// Waits until the client ends by itself; false when it still runs after `timeout` [ms].
    bool WaitForEnd(int timeout);
    int GetExitCode() const { return m_process.exitCode(); }
    /// The process that runs now, or ran last.
    qint64 GetProcessId() const;

    /// All events in the trace so far, in order.
    QVector<QJsonObject> GetEvents() const;
    /// The events with this name.
    QVector<QJsonObject> GetEvents(const QString& event) const;
    /// Waits until `condition` holds for the events; false when it does not within `timeout` [ms] or before
    /// the client ends.
    bool WaitFor(const std::function<bool(const QVector<QJsonObject>&)>& condition,
                 int timeout = 60000) const;
    /// Waits until there are `count` events with this name.
    bool WaitForEvents(const QString& event, int count, int timeout = 60000) const;

    /// For the message of a failed test.
    QByteArray GetErrorOutput() const;
    QByteArray GetTrace() const;

private:
    bool IsFirstProcessRunning() const { return m_process.state() != QProcess::NotRunning; }
    void Signal(bool kill);

    QString m_display;
    QString m_folder;
    QString m_modules;
    QString m_trace;
    QString m_errors;
    QProcess m_process;
    qint64 m_firstProcess = 0;
    bool m_killed = false;
    QProcessEnvironment m_environment;
};

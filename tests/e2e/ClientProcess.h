#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <functional>

/// The built client in a real window, told by its trace. Ends with the object, by force if need be.
class ClientProcess final
{
public:
    /// `display` is the value for DISPLAY; profile, trace and password file live in `folder`.
    ClientProcess(const QString& display, const QString& folder);
    ~ClientProcess();

    ClientProcess(const ClientProcess&) = delete;
    ClientProcess& operator=(const ClientProcess&) = delete;

    /// Another variable of the client's environment.
    void SetEnvironment(const QString& name, const QString& value);
    /// Has every later start load the files in `folder`, too: from then on the client gets copies of the
    /// built modules and of these, in a folder below its own. False when a copy fails.
    [[nodiscard]] bool AddModule(const QString& folder);
    /// Starts the client with its modules, a trace of its own and `arguments`. Its standard input gives
    /// `input` and then ends.
    void Start(const QStringList& arguments, const QByteArray& input = QByteArray());
    /// Starts it with a log-in by pin and password.
    void StartWithLogin(const QString& gateway, const QString& pin, const QByteArray& password,
                        const QStringList& arguments = {});

    /// Ends the client as the end of the system's session does (SIGTERM); false when it does not end within
    /// a minute.
    bool Stop();
    /// Ends it as a person does who quits (Ctrl+Q); false when it does not end within a minute.
    bool Quit();
    /// Ends it at once, wherever it is.
    void Kill();
    /// The client, or the one that it started in its place.
    bool IsRunning() const;
    /// Waits for the client to end by itself [ms]; false when it still runs.
    bool WaitForEnd(int timeout);
    int GetExitCode() const { return m_process.exitCode(); }
    /// Of the process that runs now, or ran last.
    qint64 GetProcessId() const;

    /// All events that the trace has by now, in order.
    QVector<QJsonObject> GetEvents() const;
    /// Those with this name.
    QVector<QJsonObject> GetEvents(const QString& event) const;
    /// Waits until `condition` holds for the events [ms]; false when it never does or the client ends first
    /// without it.
    bool WaitFor(const std::function<bool(const QVector<QJsonObject>&)>& condition,
                 int timeout = 60000) const;
    /// Waits until there are `count` events with this name.
    bool WaitForEvents(const QString& event, int count, int timeout = 60000) const;

    /// What there is to look at when something went wrong.
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

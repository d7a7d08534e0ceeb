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
    /// Starts the client with the built modules and a trace of its own, and `arguments` in addition.
    void Start(const QStringList& arguments);
    /// Starts it with a log-in by pin and password.
    void StartWithLogin(const QString& gateway, const QString& pin, const QByteArray& password,
                        const QStringList& arguments = {});

    /// Asks the client to end in order (SIGTERM); false when it does not within 20 s.
    bool Stop();
    bool IsRunning() const { return m_process.state() != QProcess::NotRunning; }
    /// Waits for the client to end by itself [ms]; false when it still runs.
    bool WaitForEnd(int timeout);
    int GetExitCode() const { return m_process.exitCode(); }
    qint64 GetProcessId() const { return m_process.processId(); }

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

    QByteArray GetErrorOutput();

private:
    QString m_folder;
    QString m_trace;
    QProcess m_process;
    QProcessEnvironment m_environment;
};

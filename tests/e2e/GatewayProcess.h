#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

/// The built gateway on a free loopback port, with its own database file. The destructor ends it.
class GatewayProcess final
{
public:
    explicit GatewayProcess(const QString& folder);
    ~GatewayProcess();

    GatewayProcess(const GatewayProcess&) = delete;
    GatewayProcess& operator=(const GatewayProcess&) = delete;

    /// False when the gateway does not report in time that it is ready.
    [[nodiscard]] bool Start();
    /// Ends the gateway in order; false when it does not end, or not with exit code 0.
    bool Stop();

    /// Its address, without a path; empty before `Start`.
    QUrl GetAddress() const { return m_address; }

    /// Runs another command of the gateway on the same database, with `input` as standard input.
    /// Its standard output; a null QByteArray when the command failed, which is reported on stderr.
    QByteArray Command(const QStringList& arguments, const QByteArray& input = QByteArray()) const;

private:
    QString m_database;
    QProcess m_process;
    QUrl m_address;
};

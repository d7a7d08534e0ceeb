#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

/// The built gateway as a process on a loopback port, with a database in a folder of the test.
class GatewayUnderTest final
{
public:
    explicit GatewayUnderTest(const QString& folder);
    ~GatewayUnderTest();

    GatewayUnderTest(const GatewayUnderTest&) = delete;
    GatewayUnderTest& operator=(const GatewayUnderTest&) = delete;

    /// The first time on a free port, after that on the same one. False when it does not get ready.
    [[nodiscard]] bool Start();
    /// Ends the process at once, as a power failure would.
    void Kill();

    /// Without a path; empty before the first `Start`.
    QUrl GetAddress() const { return m_address; }
    QString GetDatabaseFile() const { return m_databaseFile; }

    /// Runs one of the operator's commands with `input` as its standard input; false when it fails.
    [[nodiscard]] bool Command(const QStringList& arguments, const QByteArray& input = QByteArray()) const;

private:
    QStringList DatabaseOption() const;

    QString m_databaseFile;
    QProcess m_process;
    QUrl m_address;
};

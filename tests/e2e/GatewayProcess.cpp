#include "GatewayProcess.h"

#include "Programs.h"

#include <QtTest/QTest>

GatewayProcess::GatewayProcess(const QString& folder)
    : m_database(QStringLiteral("sqlite:%1/gateway.sqlite").arg(folder))
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

GatewayProcess::~GatewayProcess()
{
    Stop();
}

bool GatewayProcess::Start()
{
    m_process.start(Programs::Gateway(),
                    {QStringLiteral("serve"), QStringLiteral("--database"), m_database,
                     QStringLiteral("--listen"), QStringLiteral("127.0.0.1:0"),
                     QStringLiteral("--demo-pages"), QStringLiteral("--log-level"), QStringLiteral("warn")});
    QByteArray output;
    const bool ended = QTest::qWaitFor(
        [this, &output] {
            output += m_process.readAllStandardOutput();
            return output.endsWith('\n') || m_process.state() == QProcess::NotRunning;
        },
        60000);
    if (!ended || !output.endsWith('\n')) {
        return false;
    }
    m_address = QUrl(QString::fromUtf8(output.trimmed().split(' ').last()));
    return m_address.isValid() && m_address.port() > 0;
}

bool GatewayProcess::Stop()
{
    if (m_process.state() == QProcess::NotRunning) {
        return true;
    }
    m_process.terminate();
    if (!m_process.waitForFinished(60000)) {
        m_process.kill();
        m_process.waitForFinished(5000);
        return false;
    }
    return m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
}

QByteArray GatewayProcess::Command(const QStringList& arguments, const QByteArray& input) const
{
    QProcess command;
    command.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    command.start(Programs::Gateway(), arguments + QStringList{QStringLiteral("--database"), m_database});
    command.write(input);
    command.closeWriteChannel();
    if (!command.waitForFinished(60000) || command.exitStatus() != QProcess::NormalExit ||
        command.exitCode() != 0) {
        return QByteArray();
    }
    const QByteArray output = command.readAllStandardOutput();
    return output.isNull() ? QByteArray("") : output;
}

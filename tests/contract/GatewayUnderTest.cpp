#include "GatewayUnderTest.h"

#include "WaitUntil.h"

#include <QtCore/QDir>

namespace {

const QString Program = QStringLiteral(TL_GATEWAY_PROGRAM);

} // namespace

GatewayUnderTest::GatewayUnderTest(const QString& folder)
    : m_databaseFile(QDir(folder).filePath(QStringLiteral("gateway.sqlite")))
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

GatewayUnderTest::~GatewayUnderTest()
{
    Kill();
}

bool GatewayUnderTest::Start()
{
    const int port = m_address.port(0);
    m_process.start(Program, QStringList{QStringLiteral("serve"), QStringLiteral("--listen"),
                                         QStringLiteral("127.0.0.1:%1").arg(port),
                                         QStringLiteral("--log-level"), QStringLiteral("off")} +
                                 DatabaseOption());
    QByteArray output;
    const bool isReady = WaitUntil([this, &output] {
        output += m_process.readAllStandardOutput();
        return output.endsWith('\n') || m_process.state() == QProcess::NotRunning;
    });
    if (!isReady || !output.endsWith('\n')) {
        return false;
    }
    m_address = QUrl(QString::fromUtf8(output.trimmed().split(' ').last()));
    return m_address.isValid() && m_address.port() > 0;
}

void GatewayUnderTest::Kill()
{
    m_process.kill();
    m_process.waitForFinished();
}

bool GatewayUnderTest::Command(const QStringList& arguments, const QByteArray& input) const
{
    QProcess command;
    command.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    command.start(Program, arguments + DatabaseOption());
    command.write(input);
    command.closeWriteChannel();
    return command.waitForFinished() && command.exitStatus() == QProcess::NormalExit &&
           command.exitCode() == 0;
}

QStringList GatewayUnderTest::DatabaseOption() const
{
    return {QStringLiteral("--database"), QStringLiteral("sqlite:") + m_databaseFile};
}

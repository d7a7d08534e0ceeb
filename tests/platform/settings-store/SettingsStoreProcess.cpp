#include "SettingsStoreProcess.h"

#include <QtCore/QDeadlineTimer>

#include <gtest/gtest.h>

namespace {

constexpr int Patience = 20000; // [ms]

} // namespace

SettingsStoreProcess::SettingsStoreProcess(const QStringList& arguments)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(TL_SETTINGS_STORE_CHILD), arguments);
    EXPECT_TRUE(m_process.waitForStarted(Patience)) << m_process.errorString().toStdString();
}

SettingsStoreProcess::~SettingsStoreProcess()
{
    Kill();
}

QString SettingsStoreProcess::ReadLine()
{
    const QDeadlineTimer deadline(Patience);
    while (!m_process.canReadLine() && m_process.state() == QProcess::Running && !deadline.hasExpired()) {
        m_process.waitForReadyRead(int(deadline.remainingTime()));
    }
    return QString::fromUtf8(m_process.readLine()).trimmed();
}

void SettingsStoreProcess::LetRun(int time)
{
    m_process.waitForFinished(time);
}

void SettingsStoreProcess::Kill()
{
    if (m_process.state() == QProcess::NotRunning) {
        return;
    }
    m_process.kill();
    EXPECT_TRUE(m_process.waitForFinished(Patience));
}

bool SettingsStoreProcess::Finish()
{
    m_process.closeWriteChannel();
    return m_process.waitForFinished(Patience) && m_process.exitStatus() == QProcess::NormalExit;
}

QStringList SettingsStoreProcess::ReadRest()
{
    QStringList lines;
    while (m_process.canReadLine()) {
        lines.append(QString::fromUtf8(m_process.readLine()).trimmed());
    }
    return lines;
}

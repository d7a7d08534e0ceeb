#include "Desktop.h"

#include <QtCore/QProcess>
#include <QtTest/QTest>

Desktop::Desktop(const QString& display) : m_display(display) {}

bool Desktop::WaitForWindow(qint64 processId) const
{
    const QByteArray wanted = QByteArray::number(processId);
    return QTest::qWaitFor(
        [this, &wanted] {
            // No window at all is an error of the tool, and nothing to talk about while it is waited for.
            QByteArray active;
            return Run({QStringLiteral("getactivewindow"), QStringLiteral("getwindowpid")}, &active) &&
                   active.trimmed() == wanted;
        },
        30000);
}

bool Desktop::WaitForTitle(const QString& title, int timeout) const
{
    return QTest::qWaitFor(
        [this, &title] {
            QByteArray active;
            return Run({QStringLiteral("getactivewindow"), QStringLiteral("getwindowname")}, &active) &&
                   QString::fromUtf8(active).trimmed() == title;
        },
        timeout);
}

bool Desktop::Type(const QString& text) const
{
    return Run({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("20"), text});
}

bool Desktop::TypeFast(const QString& text) const
{
    return Run({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("2"), text});
}

bool Desktop::Press(const QStringList& keys) const
{
    return Run(QStringList{QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("50")} + keys);
}

bool Desktop::Run(const QStringList& arguments, QByteArray* output) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), m_display);
    QProcess tool;
    tool.setProcessEnvironment(environment);
    tool.start(QStringLiteral("xdotool"), arguments);
    if (!tool.waitForFinished(30000)) {
        tool.kill();
        tool.waitForFinished(5000);
        return false;
    }
    if (output) {
        *output = tool.readAllStandardOutput();
    }
    return tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0;
}

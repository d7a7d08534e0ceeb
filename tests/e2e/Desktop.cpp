#include "Desktop.h"

#include <QtCore/QProcess>
#include <QtTest/QTest>

Desktop::Desktop(const QString& display) : m_display(display) {}

bool Desktop::WaitForWindow(qint64 processId) const
{
    return WaitForKeyboard(QStringLiteral("getwindowpid"), QByteArray::number(processId), 60000);
}

bool Desktop::WaitForTitle(const QString& title, int timeout) const
{
    return WaitForKeyboard(QStringLiteral("getwindowname"), title.toUtf8(), timeout);
}

bool Desktop::WaitForKeyboard(const QString& property, const QByteArray& wanted, int timeout) const
{
    // The window manager and the X server change the active window and the focus one after the other: wait
    // until both name the same window.
    return QTest::qWaitFor(
        [this, &property, &wanted] {
            // The tool fails while there is no window at all, which is expected.
            for (const QString& window :
                 {QStringLiteral("getactivewindow"), QStringLiteral("getwindowfocus")}) {
                QByteArray found;
                if (!Run({window, property}, &found) || found.trimmed() != wanted) {
                    return false;
                }
            }
            return true;
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
    if (!tool.waitForFinished(60000)) {
        tool.kill();
        tool.waitForFinished(5000);
        return false;
    }
    if (output) {
        *output = tool.readAllStandardOutput();
    }
    return tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0;
}

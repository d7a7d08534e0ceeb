#include "Desktop.h"

#include <QtCore/QProcess>

Desktop::Desktop(const QString& display) : m_display(display) {}

bool Desktop::WaitForWindow(qint64 processId) const
{
    // There is no window manager that would give a new window the keyboard.
    return Run({QStringLiteral("search"), QStringLiteral("--sync"), QStringLiteral("--onlyvisible"),
                QStringLiteral("--pid"), QString::number(processId), QStringLiteral("windowfocus")});
}

bool Desktop::Type(const QString& text) const
{
    return Run({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("20"), text});
}

bool Desktop::Press(const QStringList& keys) const
{
    return Run(QStringList{QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("50")} + keys);
}

bool Desktop::Run(const QStringList& arguments) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), m_display);
    QProcess tool;
    tool.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    tool.setProcessEnvironment(environment);
    tool.start(QStringLiteral("xdotool"), arguments);
    if (!tool.waitForFinished(30000)) {
        tool.kill();
        tool.waitForFinished(5000);
        return false;
    }
    return tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0;
}

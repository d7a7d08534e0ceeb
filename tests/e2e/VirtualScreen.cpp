#include "VirtualScreen.h"

#include <QtTest/QTest>

VirtualScreen::VirtualScreen()
{
    // The X server picks a free number and writes it to the descriptor when it accepts connections. Key
    // repeat is off (-r), because on a busy machine keys seem to be held for long.
    m_server.start(QStringLiteral("Xvfb"),
                   {QStringLiteral("-r"), QStringLiteral("-displayfd"), QStringLiteral("1"),
                    QStringLiteral("-screen"), QStringLiteral("0"), QStringLiteral("1440x900x24"),
                    QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    QByteArray number;
    const bool started = QTest::qWaitFor(
        [this, &number] {
            number += m_server.readAllStandardOutput();
            return number.endsWith('\n') || m_server.state() == QProcess::NotRunning;
        },
        60000);
    if (started && number.endsWith('\n')) {
        m_display = QLatin1Char(':') + QString::fromLatin1(number.trimmed());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DISPLAY"), m_display);
        m_windows.setProcessEnvironment(environment);
        m_windows.setStandardErrorFile(QProcess::nullDevice());
        m_windows.start(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
        m_windows.waitForStarted();
    }
}

VirtualScreen::~VirtualScreen()
{
    for (QProcess* const process : {&m_windows, &m_server}) {
        process->terminate();
        if (!process->waitForFinished(5000)) {
            process->kill();
            process->waitForFinished(5000);
        }
    }
}

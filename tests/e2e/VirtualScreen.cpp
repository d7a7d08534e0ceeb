#include "VirtualScreen.h"

#include <QtTest/QTest>

VirtualScreen::VirtualScreen()
{
    // The X server picks a free number and writes it to the descriptor once it takes connections.
    m_server.start(QStringLiteral("Xvfb"),
                   {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                    QStringLiteral("0"), QStringLiteral("1440x900x24"), QStringLiteral("-nolisten"),
                    QStringLiteral("tcp")});
    QByteArray number;
    const bool started = QTest::qWaitFor(
        [this, &number] {
            number += m_server.readAllStandardOutput();
            return number.endsWith('\n') || m_server.state() == QProcess::NotRunning;
        },
        20000);
    if (started && number.endsWith('\n')) {
        m_display = QLatin1Char(':') + QString::fromLatin1(number.trimmed());
    }
}

VirtualScreen::~VirtualScreen()
{
    m_server.terminate();
    if (!m_server.waitForFinished(5000)) {
        m_server.kill();
        m_server.waitForFinished(5000);
    }
}

#include "system/SandboxCheck.h"

#include <QtCore/QtGlobal>

#include <unistd.h>

QString CheckSandbox()
{
    const bool switchedOff =
        qEnvironmentVariableIntValue("QTWEBENGINE_DISABLE_SANDBOX") != 0 ||
        qEnvironmentVariable("QTWEBENGINE_CHROMIUM_FLAGS").contains(QLatin1String("--no-sandbox"));
    if (geteuid() == 0 && !switchedOff) {
        return QStringLiteral("The client does not run as root, because web pages could not be isolated "
                              "from the system. Please start it as an ordinary user.");
    }
    return QString();
}

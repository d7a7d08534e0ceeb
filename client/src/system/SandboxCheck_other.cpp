#include "system/SandboxCheck.h"

QString CheckSandbox()
{
    return QString();
}

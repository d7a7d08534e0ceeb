#include "app/SandboxCheck.h"

QString CheckSandbox()
{
    return QString();
}

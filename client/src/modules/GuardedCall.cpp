#include "GuardedCall.h"

#include <QtCore/QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(logModules, "tl.client.modules")

} // namespace

void ReportThrown(const QString& module, const char* operation, const char* what)
{
    qCWarning(logModules).noquote() << "module" << module << "threw in" << operation << ":" << what;
}

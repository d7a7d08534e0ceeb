#pragma once

#include <QtCore/QString>

/// Why web pages cannot be shown safely by this process; empty when they can. The web engine's sandbox is
/// never switched off by the client itself, and does not work for the super-user.
QString CheckSandbox();

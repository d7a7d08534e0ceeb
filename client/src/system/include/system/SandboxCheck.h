#pragma once

#include <QtCore/QString>

/// Says why this process cannot show web pages safely; empty when it can. The client never switches off the
/// web engine's sandbox, which does not work for root.
QString CheckSandbox();

#pragma once

#include "SettingFault.h"

#include <QtCore/QString>

class QSqlError;

/// Connections to SQLite files. Each is named by a text of its own and belongs to the thread that opened it.
namespace SettingConnection {

/// Waits up to `busyTimeout` [ms] whenever another program has the file locked. Returns the connection's
/// name; empty, with `error`, when it cannot be opened.
QString Open(const QString& file, int busyTimeout, QSqlError* error);
/// Closes the connection and empties its name; does nothing for an empty one. No query may be left.
void Close(QString* connection);

SettingFault FaultOf(const QSqlError& error);

} // namespace SettingConnection

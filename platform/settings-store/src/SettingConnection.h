#pragma once

#include "SettingProblem.h"

#include <QtCore/QString>

class QSqlError;

/// Connections to SQLite files. Each is named by a text of its own and belongs to the thread that opened it.
namespace SettingConnection {

/// How long an operation waits for another program that has the file locked [ms]. Twice as long is still less
/// than a flush may take.
inline constexpr int BusyTimeout = 2000;

/// Waits up to `busyTimeout` [ms] whenever another program has the file locked. Returns the connection's
/// name; empty, with `error`, when it cannot be opened.
QString Open(const QString& file, int busyTimeout, QSqlError* error);
/// Closes the connection and empties its name; does nothing for an empty one. No query may be left.
void Close(QString* connection);

SettingFault FaultOf(const QSqlError& error);
SettingProblem ProblemOf(const QSqlError& error);

} // namespace SettingConnection

#pragma once

#include "SettingProblem.h"

#include <QtCore/QString>

class QSqlError;

/// Connections to SQLite files. Each has a unique name and belongs to the thread that opened it.
namespace SettingConnection {

/// How long an operation waits for another program that has the file locked [ms]. Twice as long is still less
/// than a flush may take.
inline constexpr int BusyTimeout = 2000;

/// Opens `file`; every operation on it waits up to `busyTimeout` [ms] while another program has it locked.
/// Returns the connection's name; empty, with `error`, when it cannot be opened.
QString Open(const QString& file, int busyTimeout, QSqlError* error);
/// Closes the connection and empties its name; does nothing for an empty name. All queries must be gone.
void Close(QString* connection);

SettingFault FaultOf(const QSqlError& error);
SettingProblem ProblemOf(const QSqlError& error);

} // namespace SettingConnection

#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QtGlobal>
#include <QtSql/QSqlError>

class QSqlDatabase;

/// The table that keeps rows whose checksum failed, byte for byte as they were found, so that someone can
/// still examine them. It keeps the newest 32, and only the newest one when they exceed 4 MiB together.
namespace DamagedRows {

QString CreateStatement();
/// Moves the rows with these ids out of the table of values, in one transaction.
QSqlError Keep(const QSqlDatabase& database, const QList<qint64>& rowIds);

} // namespace DamagedRows

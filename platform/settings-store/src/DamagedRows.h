#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QtGlobal>
#include <QtSql/QSqlError>

class QSqlDatabase;

/// The table that keeps rows whose checksum failed, byte for byte as they were found, so that somebody can
/// still look into them. The newest 32 are kept, of more than 4 MiB together the newest only.
namespace DamagedRows {

QString CreateStatement();
/// Moves the rows with these ids out of the table of values, in one transaction.
QSqlError Keep(const QSqlDatabase& database, const QList<qint64>& rowIds);

} // namespace DamagedRows

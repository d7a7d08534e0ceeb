#pragma once

#include "SettingKey.h"

#include <QtCore/QStringList>
#include <QtCore/QtGlobal>
#include <QtSql/QSqlError>

class QSqlDatabase;
class QSqlQuery;

/// The one table of the file: how it is made, recognised, read and written.
namespace SettingTable {

enum class Direction
{
    Forward,
    Backward,
};

enum class Kind
{
    Empty, ///< a fresh file
    Ours,
    Foreign,
};

struct ReadResult
{
    QSqlError error;      ///< invalid: all rows were read
    qint64 lastRowId = 0; ///< of the last row that could be read; 0: none could
};

/// Made in one transaction, which the statements open and close.
QStringList CreateStatements();
/// Tells what the file is; the error is invalid when that could be found out.
QSqlError Recognise(const QSqlDatabase& database, Kind* kind);

/// Reads rows in the order of their ids into `values`, until the end or the first error.
ReadResult ReadAll(const QSqlDatabase& database, Direction direction, SettingValues* values);
/// Reads the rows from one id to another, each by itself, leaving out those that cannot be read.
void ReadEach(const QSqlDatabase& database, qint64 firstRowId, qint64 lastRowId, SettingValues* values);

/// Inserts a row or replaces its value; the parameters come from `BindRow`.
QString WriteStatement();
void BindRow(QSqlQuery* query, const SettingKey& key, const QString& value);

} // namespace SettingTable

#pragma once

#include "SettingContent.h"

#include <QtCore/QStringList>
#include <QtCore/QtGlobal>
#include <QtSql/QSqlError>

class QSqlDatabase;
class QSqlQuery;

/// The table of the file's values: how to make, recognise, read and write it.
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
    Version1, ///< ours, from before rows had checksums
    Later,    ///< of a later version
    Foreign,
};

/// Which rows of a table with checksums count as sound. Rows of version 1 always do.
enum class Checksums
{
    Needed,
    IfThere, ///< a row without one, too
};

struct ReadResult
{
    QSqlError error;      ///< invalid: all rows were read
    qint64 lastRowId = 0; ///< of the last row that could be read; 0: none could
};

/// Run them in one transaction.
QStringList CreateStatements();
/// Tells what the file is; the error is invalid when it could tell.
QSqlError Recognise(const QSqlDatabase& database, Kind* kind);
/// Gives every row of version 1 a checksum, in one transaction; the file is then ours.
QSqlError BringUpToDate(const QSqlDatabase& database);

/// Reads rows in the order of their ids, until the end, the first error, or `maximumRows`.
ReadResult ReadAll(const QSqlDatabase& database, Direction direction, qint64 maximumRows, Checksums checksums,
                   SettingContent* content);
/// Reads the rows from one id to another one by one, and skips those that cannot be read.
void ReadEach(const QSqlDatabase& database, qint64 firstRowId, qint64 lastRowId, Checksums checksums,
              SettingContent* content);

/// Inserts a row or replaces its value; the parameters come from `BindRow`.
QString WriteStatement();
void BindRow(QSqlQuery* query, const SettingRow& row);

} // namespace SettingTable

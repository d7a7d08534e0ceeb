#pragma once

#include "SettingContent.h"

#include <QtCore/QStringList>
#include <QtCore/QtGlobal>
#include <QtSql/QSqlError>

class QSqlDatabase;
class QSqlQuery;

/// The table of the file's values: how it is made, recognised, read and written.
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
    Version1, ///< ours, as it was before rows had checksums
    Later,    ///< of a version that is not known yet
    Foreign,
};

/// Which rows of a table with checksums are sound. Those of version 1 are taken as they are.
enum class Checksums
{
    Needed,
    IfThere, ///< also a row that has none
};

struct ReadResult
{
    QSqlError error;      ///< invalid: all rows were read
    qint64 lastRowId = 0; ///< of the last row that could be read; 0: none could
};

/// Belong into one transaction.
QStringList CreateStatements();
/// Tells what the file is; the error is invalid when that could be found out.
QSqlError Recognise(const QSqlDatabase& database, Kind* kind);
/// Gives every row of version 1 a checksum, in one transaction; the file is then ours.
QSqlError BringUpToDate(const QSqlDatabase& database);

/// Reads rows in the order of their ids, until the end, the first error, or after `maximumRows`.
ReadResult ReadAll(const QSqlDatabase& database, Direction direction, qint64 maximumRows, Checksums checksums,
                   SettingContent* content);
/// Reads the rows from one id to another, each by itself, leaving out those that cannot be read.
void ReadEach(const QSqlDatabase& database, qint64 firstRowId, qint64 lastRowId, Checksums checksums,
              SettingContent* content);

/// Inserts a row or replaces its value; the parameters come from `BindRow`.
QString WriteStatement();
void BindRow(QSqlQuery* query, const SettingRow& row);

} // namespace SettingTable

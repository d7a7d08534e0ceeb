#include "SettingSalvage.h"

#include "SettingTable.h"

#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

namespace {

// How many rows that neither end of the table leads to are looked for one by one. [rows]
constexpr qint64 maximumProbes = 10000;

// A damaged page ends a walk along the table, so that it is walked from both ends; what lies between two
// damaged pages is reached through the row ids, which are dense since rows are never deleted.
SettingValues ReadAround(const QSqlDatabase& database)
{
    SettingValues values;
    const SettingTable::ReadResult forward =
        SettingTable::ReadAll(database, SettingTable::Direction::Forward, &values);
    if (!forward.error.isValid())
        return values;
    const SettingTable::ReadResult backward =
        SettingTable::ReadAll(database, SettingTable::Direction::Backward, &values);
    const qint64 farthest = forward.lastRowId + maximumProbes;
    const qint64 end = backward.lastRowId > 0 ? qMin(backward.lastRowId, farthest) : farthest;
    SettingTable::ReadEach(database, forward.lastRowId + 1, end, &values);
    return values;
}

} // namespace

SettingValues SettingSalvage::Read(const QString& damagedFile)
{
    const QString connection = QStringLiteral("TLSettings-salvage-") + damagedFile;
    SettingValues values;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setDatabaseName(damagedFile);
        database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        if (database.open()) {
            // Makes SQLite read a file that has lost its end. Nothing is written through this connection.
            QSqlQuery query(database);
            query.exec(QStringLiteral("PRAGMA writable_schema=ON"));
            query.finish();
            values = ReadAround(database);
        }
    }
    QSqlDatabase::removeDatabase(connection);
    return values;
}

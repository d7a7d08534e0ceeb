#include "SettingConnection.h"

#include <QtCore/QAtomicInt>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>

QString SettingConnection::Open(const QString& file, int busyTimeout, QSqlError* error)
{
    static QAtomicInt count;
    QString connection = QStringLiteral("TLSettings-%1").arg(count.fetchAndAddRelaxed(1));
    bool opened = false;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setDatabaseName(file);
        database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(busyTimeout));
        opened = database.open();
        *error = database.lastError();
    }
    if (!opened) {
        Close(&connection);
    }
    return connection;
}

void SettingConnection::Close(QString* connection)
{
    if (connection->isEmpty()) {
        return;
    }
    QSqlDatabase::removeDatabase(*connection);
    connection->clear();
}

SettingFault SettingConnection::FaultOf(const QSqlError& error)
{
    // SQLite's primary result codes; its extended codes have them in the low byte.
    switch (error.nativeErrorCode().toInt() & 0xff) {
    case 11: // SQLITE_CORRUPT
    case 26: // SQLITE_NOTADB
        return SettingFault::Damaged;
    case 5: // SQLITE_BUSY
    case 6: // SQLITE_LOCKED
        return SettingFault::Busy;
    case 13: // SQLITE_FULL
        return SettingFault::DiskFull;
    case 3:  // SQLITE_PERM
    case 8:  // SQLITE_READONLY
    case 14: // SQLITE_CANTOPEN
        return SettingFault::Unwritable;
    default:
        return SettingFault::Other;
    }
}

SettingProblem SettingConnection::ProblemOf(const QSqlError& error)
{
    return {FaultOf(error), error.databaseText()};
}

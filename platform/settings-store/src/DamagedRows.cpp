#include "DamagedRows.h"

#include <QtCore/QDateTime>
#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

namespace {

constexpr int MaximumRows = 32;
constexpr qint64 MaximumSize = qint64(4) * 1024 * 1024; // [bytes]

bool Move(QSqlQuery* query, qint64 rowId, const QString& now)
{
    if (!query->prepare(QStringLiteral(
            "INSERT INTO damaged_setting (found, scope, user, section, field, value, checksum) "
            "SELECT ?, scope, user, section, field, value, checksum FROM setting WHERE rowid = ?"))) {
        return false;
    }
    query->bindValue(0, now);
    query->bindValue(1, rowId);
    if (!query->exec() || !query->prepare(QStringLiteral("DELETE FROM setting WHERE rowid = ?"))) {
        return false;
    }
    query->bindValue(0, rowId);
    return query->exec();
}

// Deletes the oldest rows beyond the bounds.
bool Trim(QSqlQuery* query)
{
    if (!query->exec(QStringLiteral(
            "SELECT id, length(CAST(ifnull(user, '') || ifnull(section, '') || ifnull(field, '') || "
            "ifnull(value, '') AS BLOB)) + length(ifnull(checksum, '')) FROM damaged_setting "
            "ORDER BY id DESC"))) {
        return false;
    }
    qint64 size = 0;
    qint64 lastDropped = 0;
    for (int count = 1; lastDropped == 0 && query->next(); ++count) {
        size += query->value(1).toLongLong();
        if (count > MaximumRows || (count > 1 && size > MaximumSize)) {
            lastDropped = query->value(0).toLongLong();
        }
    }
    query->finish();
    if (!query->prepare(QStringLiteral("DELETE FROM damaged_setting WHERE id <= ?"))) {
        return false;
    }
    query->bindValue(0, lastDropped);
    return query->exec();
}

} // namespace

QString DamagedRows::CreateStatement()
{
    // The columns have no types, so that SQLite converts nothing.
    return QStringLiteral("CREATE TABLE IF NOT EXISTS damaged_setting (id INTEGER PRIMARY KEY, "
                          "found TEXT NOT NULL, scope, user, section, field, value, checksum)");
}

QSqlError DamagedRows::Keep(const QSqlDatabase& database, const QList<qint64>& rowIds)
{
    const QString now = QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs);
    QSqlQuery query(database);
    query.setForwardOnly(true);
    bool done = query.exec(QStringLiteral("BEGIN IMMEDIATE")) && query.exec(CreateStatement());
    for (auto it = rowIds.cbegin(); done && it != rowIds.cend(); ++it) {
        done = Move(&query, *it, now);
    }
    if (done && Trim(&query)) {
        query.finish();
        if (query.exec(QStringLiteral("COMMIT"))) {
            return {};
        }
    }
    QSqlError error = query.lastError();
    query.finish();
    query.exec(QStringLiteral("ROLLBACK"));
    return error;
}

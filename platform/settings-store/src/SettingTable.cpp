#include "SettingTable.h"

#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

namespace {

// The version of the table's layout, kept in the file's user_version.
constexpr int layoutVersion = 1;

// The values of the column "scope".
constexpr int scopeGlobal = 0;
constexpr int scopeUser = 1;

void AddRow(const QSqlQuery& row, SettingValues* values)
{
    SettingKey key;
    key.ofUser = row.value(1).toInt() == scopeUser;
    key.user = row.value(2).toString();
    key.section = row.value(3).toString();
    key.field = row.value(4).toString();
    values->insert(key, row.value(5).toString());
}

// An empty QString may be null, which SQLite would take for "no value".
QString NotNull(const QString& text)
{
    return text.isNull() ? QLatin1String("") : text;
}

} // namespace

QStringList SettingTable::CreateStatements()
{
    return {
        QStringLiteral("BEGIN IMMEDIATE"),
        QStringLiteral(
            "CREATE TABLE IF NOT EXISTS setting ("
            "scope INTEGER NOT NULL, user TEXT NOT NULL, section TEXT NOT NULL, "
            "field TEXT NOT NULL, value TEXT NOT NULL, PRIMARY KEY (scope, user, section, field))"),
        QStringLiteral("PRAGMA user_version=%1").arg(layoutVersion),
        QStringLiteral("COMMIT"),
    };
}

QSqlError SettingTable::Recognise(const QSqlDatabase& database, Kind* kind)
{
    QSqlQuery query(database);
    if (!query.exec(QStringLiteral("SELECT count(*) FROM sqlite_master")) || !query.next())
        return query.lastError();
    const bool isEmpty = query.value(0).toInt() == 0;
    if (!query.exec(QStringLiteral("PRAGMA user_version")) || !query.next())
        return query.lastError();
    const int version = query.value(0).toInt();

    QStringList columns; // each with its place in the primary key
    if (!query.exec(QStringLiteral("SELECT name || pk FROM pragma_table_info('setting') ORDER BY cid")))
        return query.lastError();
    while (query.next())
        columns.append(query.value(0).toString());
    const QStringList ours{QStringLiteral("scope1"), QStringLiteral("user2"), QStringLiteral("section3"),
                           QStringLiteral("field4"), QStringLiteral("value0")};

    if (isEmpty && version == 0)
        *kind = Kind::Empty;
    else if (version == layoutVersion && columns == ours)
        *kind = Kind::Ours;
    else
        *kind = Kind::Foreign;
    return query.lastError();
}

SettingTable::ReadResult SettingTable::ReadAll(const QSqlDatabase& database, Direction direction,
                                               SettingValues* values)
{
    ReadResult result;
    QSqlQuery query(database);
    query.setForwardOnly(true);
    const QString select = QStringLiteral("SELECT rowid, scope, user, section, field, value FROM setting "
                                          "ORDER BY rowid %1");
    if (query.exec(
            select.arg(direction == Direction::Forward ? QLatin1String("ASC") : QLatin1String("DESC")))) {
        while (query.next()) {
            result.lastRowId = query.value(0).toLongLong();
            AddRow(query, values);
        }
    }
    result.error = query.lastError();
    return result;
}

void SettingTable::ReadEach(const QSqlDatabase& database, qint64 firstRowId, qint64 lastRowId,
                            SettingValues* values)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.prepare(
            QStringLiteral("SELECT rowid, scope, user, section, field, value FROM setting WHERE rowid = ?")))
        return;
    for (qint64 rowId = firstRowId; rowId <= lastRowId; ++rowId) {
        query.bindValue(0, rowId);
        if (query.exec() && query.next())
            AddRow(query, values);
        query.finish();
    }
}

QString SettingTable::WriteStatement()
{
    return QStringLiteral("INSERT INTO setting (scope, user, section, field, value) VALUES (?, ?, ?, ?, ?) "
                          "ON CONFLICT (scope, user, section, field) DO UPDATE SET value = excluded.value");
}

void SettingTable::BindRow(QSqlQuery* query, const SettingKey& key, const QString& value)
{
    query->bindValue(0, key.ofUser ? scopeUser : scopeGlobal);
    query->bindValue(1, NotNull(key.user));
    query->bindValue(2, NotNull(key.section));
    query->bindValue(3, NotNull(key.field));
    query->bindValue(4, NotNull(value));
}

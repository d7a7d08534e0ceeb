#include "SettingTable.h"

#include "DamagedRows.h"

#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

namespace {

// The version of the table's layout, kept in the file's user_version.
constexpr int LayoutVersion = 2;

// Stands for a scope that is not a number; no checksum matches it.
constexpr qint64 NoScope = -1;

const QString ChecksumColumn = QStringLiteral("checksum BLOB NOT NULL DEFAULT x''");

QString VersionStatement()
{
    return QStringLiteral("PRAGMA user_version=%1").arg(LayoutVersion);
}

// Reads texts, and writes them below, as the file's bytes: SQLite's own conversion from and to UTF-16 changes
// some texts, which would look like damage.
QString SelectStatement(bool hasChecksums)
{
    return QStringLiteral("SELECT rowid, scope, CAST(user AS BLOB), CAST(section AS BLOB), "
                          "CAST(field AS BLOB), CAST(value AS BLOB), %1 FROM setting ")
        .arg(hasChecksums ? QLatin1String("checksum") : QLatin1String("x''"));
}

SettingRow RowOf(const QSqlQuery& query)
{
    SettingRow row;
    bool isNumber = false;
    row.scope = query.value(1).toLongLong(&isNumber);
    if (!isNumber) {
        row.scope = NoScope;
    }
    row.user = query.value(2).toByteArray();
    row.section = query.value(3).toByteArray();
    row.field = query.value(4).toByteArray();
    row.value = query.value(5).toByteArray();
    row.checksum = query.value(6).toByteArray();
    return row;
}

QSqlError ReadColumns(const QSqlDatabase& database, QStringList* columns)
{
    QSqlQuery query(database);
    if (!query.exec(QStringLiteral("SELECT name || pk FROM pragma_table_info('setting') "
                                   "WHERE EXISTS (SELECT 1 FROM sqlite_master "
                                   "WHERE type = 'table' AND name = 'setting') ORDER BY cid"))) {
        return query.lastError();
    }
    while (query.next()) {
        columns->append(query.value(0).toString()); // each with its position in the primary key
    }
    return query.lastError();
}

QStringList ColumnsOfVersion1()
{
    return {QStringLiteral("scope1"), QStringLiteral("user2"), QStringLiteral("section3"),
            QStringLiteral("field4"), QStringLiteral("value0")};
}

bool HasChecksums(const QStringList& columns)
{
    return columns.contains(QLatin1String("checksum0"));
}

// Files a row under the sound or the damaged ones.
void AddRow(const QSqlQuery& query, SettingTable::Checksums checksums, SettingContent* content)
{
    const SettingRow row = RowOf(query);
    const bool isTaken = checksums == SettingTable::Checksums::IfThere && row.checksum.isEmpty();
    if (isTaken || row.IsSound()) {
        content->values.insert(row.GetKey(), row.GetText());
    } else {
        content->damaged.insert(query.value(0).toLongLong(), row);
    }
}

} // namespace

QStringList SettingTable::CreateStatements()
{
    return {
        QStringLiteral(
            "CREATE TABLE setting ("
            "scope INTEGER NOT NULL, user TEXT NOT NULL, section TEXT NOT NULL, "
            "field TEXT NOT NULL, value TEXT NOT NULL, %1, PRIMARY KEY (scope, user, section, field))")
            .arg(ChecksumColumn),
        DamagedRows::CreateStatement(),
        VersionStatement(),
    };
}

QSqlError SettingTable::Recognise(const QSqlDatabase& database, Kind* kind)
{
    QSqlQuery query(database);
    if (!query.exec(QStringLiteral("SELECT count(*) FROM sqlite_master")) || !query.next()) {
        return query.lastError();
    }
    const bool isEmpty = query.value(0).toInt() == 0;
    if (!query.exec(QStringLiteral("PRAGMA user_version")) || !query.next()) {
        return query.lastError();
    }
    const int version = query.value(0).toInt();
    query.finish();

    QStringList columns;
    QSqlError error = ReadColumns(database, &columns);
    if (error.isValid()) {
        return error;
    }
    const QStringList before = ColumnsOfVersion1();
    if (isEmpty && version == 0) {
        *kind = Kind::Empty;
    } else if (version == 1 && columns == before) {
        *kind = Kind::Version1;
    } else if (version == LayoutVersion && columns == before + QStringList(QStringLiteral("checksum0"))) {
        *kind = Kind::Ours;
    } else if (version > LayoutVersion && !columns.isEmpty()) {
        *kind = Kind::Later;
    } else {
        *kind = Kind::Foreign;
    }
    return {};
}

QSqlError SettingTable::BringUpToDate(const QSqlDatabase& database)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    const auto failed = [&query] {
        QSqlError error = query.lastError();
        query.finish();
        query.exec(QStringLiteral("ROLLBACK"));
        return error;
    };
    for (const QString& statement :
         {QStringLiteral("BEGIN IMMEDIATE"),
          QStringLiteral("ALTER TABLE setting ADD COLUMN ") + ChecksumColumn, DamagedRows::CreateStatement(),
          VersionStatement(), SelectStatement(true)}) {
        if (!query.exec(statement)) {
            return failed();
        }
    }
    QMap<qint64, QByteArray> checksums;
    while (query.next()) {
        checksums.insert(query.value(0).toLongLong(), RowOf(query).CountChecksum());
    }
    if (query.lastError().isValid() ||
        !query.prepare(QStringLiteral("UPDATE setting SET checksum = ? WHERE rowid = ?"))) {
        return failed();
    }
    for (auto it = checksums.cbegin(); it != checksums.cend(); ++it) {
        query.bindValue(0, it.value());
        query.bindValue(1, it.key());
        if (!query.exec()) {
            return failed();
        }
    }
    query.finish();
    return query.exec(QStringLiteral("COMMIT")) ? QSqlError() : failed();
}

SettingTable::ReadResult SettingTable::ReadAll(const QSqlDatabase& database, Direction direction,
                                               qint64 maximumRows, Checksums checksums,
                                               SettingContent* content)
{
    ReadResult result;
    QStringList columns;
    result.error = ReadColumns(database, &columns);
    if (result.error.isValid() || columns.isEmpty()) {
        return result;
    }
    if (!HasChecksums(columns)) {
        checksums = Checksums::IfThere;
    }
    QSqlQuery query(database);
    query.setForwardOnly(true);
    const QString order =
        QStringLiteral("ORDER BY rowid %1")
            .arg(direction == Direction::Forward ? QLatin1String("ASC") : QLatin1String("DESC"));
    if (query.exec(SelectStatement(HasChecksums(columns)) + order)) {
        for (qint64 i = 0; i < maximumRows && query.next(); ++i) {
            result.lastRowId = query.value(0).toLongLong();
            AddRow(query, checksums, content);
        }
    }
    result.error = query.lastError();
    return result;
}

void SettingTable::ReadEach(const QSqlDatabase& database, qint64 firstRowId, qint64 lastRowId,
                            Checksums checksums, SettingContent* content)
{
    QStringList columns;
    if (ReadColumns(database, &columns).isValid()) {
        return;
    }
    if (!HasChecksums(columns)) {
        checksums = Checksums::IfThere;
    }
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.prepare(SelectStatement(HasChecksums(columns)) + QLatin1String("WHERE rowid = ?"))) {
        return;
    }
    for (qint64 rowId = firstRowId; rowId <= lastRowId; ++rowId) {
        query.bindValue(0, rowId);
        if (query.exec() && query.next()) {
            AddRow(query, checksums, content);
        }
        query.finish();
    }
}

QString SettingTable::WriteStatement()
{
    return QStringLiteral("INSERT INTO setting (scope, user, section, field, value, checksum) "
                          "VALUES (?, CAST(? AS TEXT), CAST(? AS TEXT), CAST(? AS TEXT), CAST(? AS TEXT), ?) "
                          "ON CONFLICT (scope, user, section, field) "
                          "DO UPDATE SET value = excluded.value, checksum = excluded.checksum");
}

void SettingTable::BindRow(QSqlQuery* query, const SettingRow& row)
{
    query->bindValue(0, row.scope);
    query->bindValue(1, row.user);
    query->bindValue(2, row.section);
    query->bindValue(3, row.field);
    query->bindValue(4, row.value);
    query->bindValue(5, row.checksum);
}

#include "SettingSalvage.h"

#include "SettingConnection.h"
#include "SettingCopy.h"
#include "SettingFileNames.h"
#include "SettingTable.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

namespace {

// How many rows to probe one by one that neither end of the table leads to. [rows]
constexpr qint64 MaximumProbes = 10000;
constexpr int PageSize = 4096;    // of all our files [bytes]
constexpr int SmallestRow = 8;    // [bytes]
constexpr qint64 AtLeastRows = 1; // of a file without a size

// A damaged page ends a walk along the table, so we walk from both ends. What lies between two damaged pages
// is reached by row ids, which are nearly dense because rows are hardly ever deleted.
SettingContent ReadAround(const QSqlDatabase& database, qint64 maximumRows, SettingTable::Checksums checksums)
{
    SettingContent content;
    const SettingTable::ReadResult forward =
        SettingTable::ReadAll(database, SettingTable::Direction::Forward, maximumRows, checksums, &content);
    if (!forward.error.isValid()) {
        return content;
    }
    const SettingTable::ReadResult backward =
        SettingTable::ReadAll(database, SettingTable::Direction::Backward, maximumRows, checksums, &content);
    const qint64 farthest = forward.lastRowId + MaximumProbes;
    const qint64 end = backward.lastRowId > 0 ? qMin(backward.lastRowId, farthest) : farthest;
    SettingTable::ReadEach(database, forward.lastRowId + 1, end, checksums, &content);
    return content;
}

SettingContent ReadCopy(const QString& copy, SettingTable::Checksums checksums)
{
    // No file holds more rows than this. Damage can lead a walk in circles.
    const qint64 size = QFileInfo(copy).size() + QFileInfo(copy + SettingFileNames::Log).size();
    QSqlError error;
    QString connection = SettingConnection::Open(copy, SettingConnection::BusyTimeout, &error);
    SettingContent content;
    if (!connection.isEmpty()) {
        const QSqlDatabase database = QSqlDatabase::database(connection);
        // Makes SQLite read a truncated file.
        QSqlQuery query(database);
        query.exec(QStringLiteral("PRAGMA writable_schema=ON"));
        query.finish();
        content = ReadAround(database, qMax(size / SmallestRow, AtLeastRows), checksums);
    }
    SettingConnection::Close(&connection);
    return content;
}

// The first page of a store, which says where its tables begin and is the same in all stores.
QByteArray MakeFirstPage(const QString& emptyFile)
{
    QSqlError error;
    QString connection = SettingConnection::Open(emptyFile, SettingConnection::BusyTimeout, &error);
    if (!connection.isEmpty()) {
        QSqlQuery query(QSqlDatabase::database(connection));
        query.exec(QStringLiteral("PRAGMA page_size=%1").arg(PageSize));
        for (const QString& statement : SettingTable::CreateStatements()) {
            query.exec(statement);
        }
    }
    SettingConnection::Close(&connection);

    QFile file(emptyFile);
    QByteArray page;
    if (file.open(QFile::ReadOnly)) {
        page = file.read(PageSize);
    }
    if (page.size() < PageSize) {
        return {};
    }
    page[18] = page[19] = 2;       // there may be a log
    page[27] = char(~page.at(95)); // makes SQLite ignore the size in the header
    return page;
}

// Replaces the copy's first page with a sound one.
bool ReplaceFirstPage(const SettingCopy& copy)
{
    const QByteArray page = MakeFirstPage(copy.GetPathOf(QStringLiteral("empty")));
    QFile file(copy.GetFile());
    return !page.isEmpty() && file.open(QFile::ReadWrite) && file.write(page) == page.size();
}

} // namespace

SettingContent SettingSalvage::Read(const QString& damagedFile)
{
    const QFileInfo info(damagedFile);
    if (info.exists() && !info.isFile()) {
        return {};
    }
    SettingContent content;
    {
        const SettingCopy copy(damagedFile);
        if (!copy.GetFile().isEmpty()) {
            content = ReadCopy(copy.GetFile(), SettingTable::Checksums::Needed);
        }
    }
    if (!content.values.isEmpty()) {
        return content;
    }
    const SettingCopy copy(damagedFile);
    if (!copy.GetFile().isEmpty() && ReplaceFirstPage(copy)) {
        content = ReadCopy(copy.GetFile(), SettingTable::Checksums::IfThere);
    }
    return content;
}

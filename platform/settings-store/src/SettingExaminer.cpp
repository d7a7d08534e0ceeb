#include "SettingExaminer.h"

#include "SettingConnection.h"
#include "SettingCopy.h"

#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

SettingProblem SettingExaminer::Examine(const QString& connection, SettingTable::Kind* kind)
{
    SettingProblem problem = CheckIntegrity(connection);
    if (!problem.None()) {
        return problem;
    }
    const QSqlError error = SettingTable::Recognise(QSqlDatabase::database(connection), kind);
    if (error.isValid()) {
        return SettingConnection::ProblemOf(error);
    }
    if (*kind == SettingTable::Kind::Foreign) {
        return {SettingFault::Damaged, tr("it was created by another program")};
    }
    if (*kind == SettingTable::Kind::Later) {
        return {SettingFault::LaterVersion, QString()};
    }
    return {};
}

SettingProblem SettingExaminer::ExamineCopy(const QString& file)
{
    const SettingCopy copy(file);
    QSqlError error;
    QString connection = SettingConnection::Open(copy.GetFile(), SettingConnection::BusyTimeout, &error);
    if (copy.GetFile().isEmpty() || connection.isEmpty()) {
        return {}; // there may be no room for it
    }
    SettingTable::Kind kind = SettingTable::Kind::Foreign;
    SettingProblem problem = Examine(connection, &kind);
    SettingConnection::Close(&connection);
    return problem;
}

SettingProblem SettingExaminer::CheckIntegrity(const QString& connection)
{
    QSqlQuery query(QSqlDatabase::database(connection));
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral("PRAGMA integrity_check(1)")) || !query.next()) {
        SettingProblem problem = SettingConnection::ProblemOf(query.lastError());
        // The statement is correct: SQLite also gives this error for a header whose format it does not know.
        constexpr int sqliteError = 1;
        if (query.lastError().nativeErrorCode().toInt() == sqliteError) {
            problem.fault = SettingFault::Damaged;
        }
        return problem;
    }
    const QString verdict = query.value(0).toString();
    if (verdict == QLatin1String("ok")) {
        return {};
    }
    return {SettingFault::Damaged,
            verdict.section(QLatin1Char('\n'), -1)}; // below a line that names the database
}

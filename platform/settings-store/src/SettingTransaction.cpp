#include "SettingTransaction.h"

#include "SettingConnection.h"
#include "SettingTable.h"

#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include <functional>

namespace {

bool InsertRows(QSqlQuery* query, const SettingValues& values)
{
    if (!query->prepare(SettingTable::WriteStatement())) {
        return false;
    }
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        SettingTable::BindRow(query, SettingRow::Of(it.key(), it.value()));
        if (!query->exec()) {
            return false;
        }
    }
    return true;
}

SettingProblem InTransaction(const QString& connection, const std::function<bool(QSqlQuery*)>& work)
{
    QSqlQuery query(QSqlDatabase::database(connection));
    if (query.exec(QStringLiteral("BEGIN IMMEDIATE")) && work(&query)) {
        query.finish();
        if (query.exec(QStringLiteral("COMMIT"))) {
            return {};
        }
    }
    SettingProblem problem = SettingConnection::ProblemOf(query.lastError());
    query.finish();
    query.exec(QStringLiteral("ROLLBACK"));
    return problem;
}

} // namespace

SettingProblem SettingTransaction::CreateTables(const QString& connection, const SettingValues& values)
{
    return InTransaction(connection, [&values](QSqlQuery* query) {
        for (const QString& statement : SettingTable::CreateStatements()) {
            if (!query->exec(statement)) {
                return false;
            }
        }
        return InsertRows(query, values);
    });
}

SettingProblem SettingTransaction::WriteRows(const QString& connection, const SettingValues& values)
{
    return InTransaction(connection, [&values](QSqlQuery* query) { return InsertRows(query, values); });
}

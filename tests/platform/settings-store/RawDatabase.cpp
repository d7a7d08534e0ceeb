#include "RawDatabase.h"

#include <QtCore/QUuid>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include <gtest/gtest.h>

RawDatabase::RawDatabase(const QString& file) : m_connection(QUuid::createUuid().toString())
{
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    database.setDatabaseName(file);
    database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=0"));
    EXPECT_TRUE(database.open()) << database.lastError().text().toStdString();
}

RawDatabase::~RawDatabase()
{
    QSqlDatabase::removeDatabase(m_connection);
}

QVariant RawDatabase::Run(const QString& statement)
{
    QSqlQuery query(QSqlDatabase::database(m_connection));
    EXPECT_TRUE(query.exec(statement))
        << statement.toStdString() << ": " << query.lastError().text().toStdString();
    return query.next() ? query.value(0) : QVariant();
}

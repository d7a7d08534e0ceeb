#include "StoredSettings.h"

#include <QtCore/QUuid>
#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

StoredSettings::StoredSettings(const QString& profile) : m_file(profile + QStringLiteral("/settings.sqlite"))
{}

QString StoredSettings::GetUserValue(const QString& pin, const QString& section, const QString& field) const
{
    return Read(1, pin, section, field);
}

QString StoredSettings::GetGlobalValue(const QString& section, const QString& field) const
{
    return Read(0, QString(), section, field);
}

QString StoredSettings::Read(int scope, const QString& user, const QString& section,
                             const QString& field) const
{
    QString value;
    const QString connection = QUuid::createUuid().toString();
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setDatabaseName(m_file);
        database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=2000"));
        if (database.open()) {
            QSqlQuery query(database);
            query.prepare(QStringLiteral("SELECT CAST(value AS BLOB) FROM setting WHERE scope = ? "
                                         "AND user = ? AND section = ? AND field = ?"));
            int place = 0;
            query.bindValue(place++, scope);
            for (const QString& text : {user, section, field}) {
                query.bindValue(place++, text.isNull() ? QString::fromLatin1("") : text);
            }
            if (query.exec() && query.next()) {
                value = QString::fromUtf8(query.value(0).toByteArray());
            }
        }
    }
    QSqlDatabase::removeDatabase(connection);
    return value;
}

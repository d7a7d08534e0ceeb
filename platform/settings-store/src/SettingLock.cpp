#include "SettingLock.h"

#include "SettingConnection.h"

#include <QtCore/QFile>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

namespace {

constexpr int Patience = 1000; // [ms]

} // namespace

SettingLock::SettingLock(const QString& file) : m_file(file) {}

SettingLock::~SettingLock()
{
    SettingConnection::Close(&m_connection);
}

bool SettingLock::Take()
{
    bool isDamaged = false;
    bool isFree = TryOnce(&isDamaged);
    if (isDamaged && QFile::remove(m_file)) { // another program wrote into it, so no process has it locked
        isFree = TryOnce(&isDamaged);
    }
    return isFree;
}

// An open transaction on an empty database, which is never written: the one lock that works wherever SQLite
// does, and goes away with its process.
bool SettingLock::TryOnce(bool* isDamaged)
{
    QSqlError error;
    m_connection = SettingConnection::Open(m_file, Patience, &error);
    if (!m_connection.isEmpty()) {
        QSqlQuery query(QSqlDatabase::database(m_connection));
        if (query.exec(QStringLiteral("PRAGMA journal_mode=MEMORY")) &&
            query.exec(QStringLiteral("BEGIN IMMEDIATE"))) {
            return true;
        }
        error = query.lastError();
    }
    SettingConnection::Close(&m_connection);
    const SettingFault fault = SettingConnection::FaultOf(error);
    *isDamaged = fault == SettingFault::Damaged;
    return fault != SettingFault::Busy;
}

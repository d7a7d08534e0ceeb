#include "SqliteConnection.h"

#include "SqliteError.h"
#include "SqliteQuery.h"

#include <sqlite3.h>

#include <algorithm>

namespace TLGateway {

namespace {

// SQLite takes $1 for a name; its number 1 is ?1. No statement has a dollar sign elsewhere.
std::string WithNumberedParameters(std::string_view sql)
{
    std::string text(sql);
    std::replace(text.begin(), text.end(), '$', '?');
    return text;
}

} // namespace

SqliteConnection::SqliteConnection(const std::string& file, Mode mode, std::chrono::milliseconds busyTimeout)
{
    const int access =
        mode == Mode::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    const int result = sqlite3_open_v2(file.c_str(), &m_connection,
                                       access | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    if (result != SQLITE_OK) {
        const std::string message =
            m_connection != nullptr ? sqlite3_errmsg(m_connection) : sqlite3_errstr(result);
        Close();
        throw SqliteError(result, message);
    }
    sqlite3_busy_timeout(m_connection, static_cast<int>(busyTimeout.count()));
}

SqliteConnection::~SqliteConnection()
{
    Close();
}

void SqliteConnection::Execute(const char* sql)
{
    Check(sqlite3_exec(m_connection, sql, nullptr, nullptr, nullptr));
}

std::unique_ptr<IQuery> SqliteConnection::Query(std::string_view sql)
{
    const auto [position, isNew] = m_statements.try_emplace(std::string(sql), nullptr);
    if (isNew) {
        const std::string text = WithNumberedParameters(sql);
        const int result = sqlite3_prepare_v3(m_connection, text.c_str(), static_cast<int>(text.size()),
                                              SQLITE_PREPARE_PERSISTENT, &position->second, nullptr);
        if (result != SQLITE_OK) {
            m_statements.erase(position);
            Check(result);
        }
    }
    return std::make_unique<SqliteQuery>(position->second);
}

std::string SqliteConnection::SingleValue(std::string_view sql)
{
    const auto query = Query(sql);
    return query->Step() ? query->Text(0) : std::string();
}

bool SqliteConnection::IsInTransaction() const noexcept
{
    return sqlite3_get_autocommit(m_connection) == 0;
}

void SqliteConnection::Checkpoint()
{
    const int result =
        sqlite3_wal_checkpoint_v2(m_connection, nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
    // Busy: another program is doing just that.
    if (result != SQLITE_BUSY) {
        Check(result);
    }
}

void SqliteConnection::Check(int result) const
{
    if (result != SQLITE_OK) {
        throw SqliteError(sqlite3_extended_errcode(m_connection), sqlite3_errmsg(m_connection));
    }
}

void SqliteConnection::Close() noexcept
{
    for (const auto& entry : m_statements) {
        sqlite3_finalize(entry.second);
    }
    m_statements.clear();
    sqlite3_close_v2(m_connection);
    m_connection = nullptr;
}

} // namespace TLGateway

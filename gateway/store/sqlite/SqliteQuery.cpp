#include "SqliteQuery.h"

#include "SqliteError.h"

#include <sqlite3.h>

namespace TLGateway {

SqliteQuery::SqliteQuery(sqlite3_stmt* statement) noexcept : m_statement(statement) {}

SqliteQuery::~SqliteQuery()
{
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
}

// SQLite reads a null pointer as NULL, and an empty view may hold one.
IQuery& SqliteQuery::BindText(std::string_view text)
{
    Check(sqlite3_bind_text64(m_statement, ++m_bound, text.empty() ? "" : text.data(), text.size(),
                              SQLITE_STATIC, SQLITE_UTF8));
    return *this;
}

IQuery& SqliteQuery::BindBlob(std::string_view bytes)
{
    Check(sqlite3_bind_blob64(m_statement, ++m_bound, bytes.empty() ? "" : bytes.data(), bytes.size(),
                              SQLITE_STATIC));
    return *this;
}

IQuery& SqliteQuery::BindInteger(std::int64_t value)
{
    Check(sqlite3_bind_int64(m_statement, ++m_bound, value));
    return *this;
}

IQuery& SqliteQuery::BindBoolean(bool value)
{
    return BindInteger(value ? 1 : 0);
}

bool SqliteQuery::Step()
{
    const int result = sqlite3_step(m_statement);
    if (result == SQLITE_ROW) {
        return true;
    }
    if (result != SQLITE_DONE) {
        Check(result);
    }
    return false;
}

std::size_t SqliteQuery::Run()
{
    while (Step()) {
    }
    return static_cast<std::size_t>(sqlite3_changes(sqlite3_db_handle(m_statement)));
}

std::string SqliteQuery::Text(int column) const
{
    const unsigned char* text = sqlite3_column_text(m_statement, column);
    const int size = sqlite3_column_bytes(m_statement, column);
    return text == nullptr ? std::string()
                           : std::string(reinterpret_cast<const char*>(text), static_cast<std::size_t>(size));
}

std::string SqliteQuery::Blob(int column) const
{
    const void* bytes = sqlite3_column_blob(m_statement, column);
    const int size = sqlite3_column_bytes(m_statement, column);
    return bytes == nullptr ? std::string()
                            : std::string(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
}

std::int64_t SqliteQuery::Integer(int column) const
{
    return sqlite3_column_int64(m_statement, column);
}

bool SqliteQuery::Boolean(int column) const
{
    return Integer(column) != 0;
}

void SqliteQuery::ThrowDamaged(const std::string& finding) const
{
    throw SqliteError(SQLITE_CORRUPT, finding);
}

void SqliteQuery::Check(int result) const
{
    if (result != SQLITE_OK) {
        sqlite3* connection = sqlite3_db_handle(m_statement);
        throw SqliteError(sqlite3_extended_errcode(connection), sqlite3_errmsg(connection));
    }
}

} // namespace TLGateway

#include "store/sqlite/SqliteQuery.h"

#include "store/sqlite/SqliteError.h"

#include <sqlite3.h>

#include <utility>

namespace TLGateway {

SqliteQuery::SqliteQuery(sqlite3_stmt* statement) noexcept : m_statement(statement) {}

SqliteQuery::SqliteQuery(SqliteQuery&& other) noexcept
    : m_statement(std::exchange(other.m_statement, nullptr))
{}

SqliteQuery::~SqliteQuery()
{
    if (m_statement != nullptr) {
        sqlite3_reset(m_statement);
        sqlite3_clear_bindings(m_statement);
    }
}

// SQLite reads a null pointer as NULL, and an empty view may hold one.
SqliteQuery& SqliteQuery::BindText(int index, std::string_view text)
{
    Check(sqlite3_bind_text64(m_statement, index, text.empty() ? "" : text.data(), text.size(), SQLITE_STATIC,
                              SQLITE_UTF8));
    return *this;
}

SqliteQuery& SqliteQuery::BindBlob(int index, std::string_view bytes)
{
    Check(sqlite3_bind_blob64(m_statement, index, bytes.empty() ? "" : bytes.data(), bytes.size(),
                              SQLITE_STATIC));
    return *this;
}

SqliteQuery& SqliteQuery::BindInteger(int index, std::int64_t value)
{
    Check(sqlite3_bind_int64(m_statement, index, value));
    return *this;
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

void SqliteQuery::Run()
{
    while (Step()) {
    }
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

void SqliteQuery::Check(int result) const
{
    if (result != SQLITE_OK) {
        sqlite3* connection = sqlite3_db_handle(m_statement);
        throw SqliteError(sqlite3_extended_errcode(connection), sqlite3_errmsg(connection));
    }
}

} // namespace TLGateway

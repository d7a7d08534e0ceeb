#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3_stmt;

namespace TLGateway {

// One run of a prepared statement; the statement is reset when the run ends. Parameters count from 1, columns
// from 0. Every operation throws SqliteError.
class SqliteQuery final
{
public:
    explicit SqliteQuery(sqlite3_stmt* statement) noexcept;
    SqliteQuery(SqliteQuery&& other) noexcept;
    SqliteQuery(const SqliteQuery&) = delete;
    SqliteQuery& operator=(const SqliteQuery&) = delete;
    SqliteQuery& operator=(SqliteQuery&&) = delete;
    ~SqliteQuery();

    // Bound texts are not copied: they must live until the run ends.
    SqliteQuery& BindText(int index, std::string_view text);
    SqliteQuery& BindBlob(int index, std::string_view bytes);
    SqliteQuery& BindInteger(int index, std::int64_t value);

    // True while there is a row to look at.
    [[nodiscard]] bool Step();
    // Steps to the end, for statements whose rows are of no interest.
    void Run();

    [[nodiscard]] std::string Text(int column) const;
    [[nodiscard]] std::string Blob(int column) const;
    [[nodiscard]] std::int64_t Integer(int column) const;

private:
    void Check(int result) const;

    sqlite3_stmt* m_statement;
};

} // namespace TLGateway

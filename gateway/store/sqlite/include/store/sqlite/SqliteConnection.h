#pragma once

#include "store/sqlite/SqliteQuery.h"

#include <chrono>
#include <string>
#include <string_view>
#include <unordered_map>

struct sqlite3;

namespace TLGateway {

// One connection to a database file and its prepared statements. One thread at a time. Every operation throws
// SqliteError.
class SqliteConnection final
{
public:
    enum class Mode
    {
        ReadOnly,  // the file must exist
        ReadWrite, // the file is made when it does not exist
    };

    // The path is UTF-8. How long a statement waits for a lock that another connection holds: busyTimeout.
    SqliteConnection(const std::string& file, Mode mode, std::chrono::milliseconds busyTimeout);
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;
    ~SqliteConnection();

    // Runs one or more statements that give no rows.
    void Execute(const char* sql);

    // The statement is prepared once per text. Two runs of one text must not overlap.
    [[nodiscard]] SqliteQuery Query(std::string_view sql);

    // The first column of the first row, or an empty text.
    [[nodiscard]] std::string SingleValue(std::string_view sql);

    [[nodiscard]] bool IsInTransaction() const noexcept;
    // Rows that the last statement changed.
    [[nodiscard]] int ChangedRows() const noexcept;
    // Moves the write-ahead log into the database file, as far as that can be done without waiting for
    // others.
    void Checkpoint();

private:
    void Check(int result) const;
    void Close() noexcept;

    sqlite3* m_connection = nullptr;
    std::unordered_map<std::string, sqlite3_stmt*> m_statements;
};

} // namespace TLGateway

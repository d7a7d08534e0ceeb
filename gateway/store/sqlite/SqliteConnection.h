#pragma once

#include "store/rows/IConnection.h"

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

struct sqlite3;
struct sqlite3_stmt;

namespace TLGateway {

// One connection to a database file and its prepared statements. One thread at a time. Every operation throws
// SqliteError.
class SqliteConnection final : public IConnection
{
public:
    enum class Mode
    {
        ReadOnly,  // the file must exist
        ReadWrite, // creates the file when it does not exist
    };

    // The path is UTF-8. A statement waits at most busyTimeout for a lock that another connection holds.
    SqliteConnection(const std::string& file, Mode mode, std::chrono::milliseconds busyTimeout);
    ~SqliteConnection() override;

    // Runs one or more statements that give no rows.
    void Execute(const char* sql);

    [[nodiscard]] std::unique_ptr<IQuery> Query(std::string_view sql) override;

    // The first column of the first row, or an empty text.
    [[nodiscard]] std::string SingleValue(std::string_view sql);

    [[nodiscard]] bool IsInTransaction() const noexcept;
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

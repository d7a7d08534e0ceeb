#pragma once

#include "PostgresQuery.h"
#include "PostgresTarget.h"
#include "store/postgres/PostgresLimits.h"
#include "store/rows/IConnection.h"

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

struct pg_conn;

namespace TLGateway {

// One connection to a server and its prepared statements. One thread at a time. Every operation throws
// PostgresError, and none waits forever: neither for a lock, nor for a slow statement, nor for a silent
// server.
class PostgresConnection final : public IConnection
{
public:
    // Connects. Names without a schema mean the gateway's own schema from then on.
    PostgresConnection(const PostgresTarget& target, const PostgresLimits& limits);
    ~PostgresConnection() override;

    // Runs one or more statements that give no rows. Gives the server's status of the last one ("COMMIT").
    std::string Execute(const char* sql);

    [[nodiscard]] std::unique_ptr<IQuery> Query(std::string_view sql) override;

    // The first column of the first row, or an empty text.
    [[nodiscard]] std::string SingleValue(std::string_view sql);

    // False once an operation has thrown an error that says so.
    [[nodiscard]] bool IsUsable() const noexcept;
    [[nodiscard]] bool IsInTransaction() const noexcept;
    // A number as in 150018.
    [[nodiscard]] int ServerVersion() const noexcept;
    [[nodiscard]] std::string ServerEncoding() const;

private:
    friend class PostgresQuery;

    struct Closed
    {
        void operator()(pg_conn* connection) const noexcept;
    };

    [[nodiscard]] PostgresResult RunPrepared(const PostgresQuery& query);
    void SetLimits();
    void CheckSent(int isSent);
    [[nodiscard]] PostgresResult AwaitResult();
    // Waits until the socket can be read, or written when that is wanted, too.
    void AwaitSocket(bool alsoToWrite, std::chrono::steady_clock::time_point deadline);
    [[noreturn]] void ThrowLost(const std::string& message, const std::string& state = {});

    const PostgresLimits m_limits;
    std::unique_ptr<pg_conn, Closed> m_connection;             // null once it is lost
    std::unordered_map<std::string, std::string> m_statements; // names by text
};

} // namespace TLGateway

#pragma once

#include "store/rows/DatabaseError.h"

#include <string>
#include <utility>

namespace TLGateway {

// A call of the server, or the connection to it, failed.
class PostgresError final : public DatabaseError
{
public:
    enum class Connection
    {
        Usable,
        Lost, // what was under way may or may not have been done
    };

    // The state is the server's SQLSTATE; empty when the failure did not come from the server.
    PostgresError(std::string state, const std::string& message, Connection connection)
        : DatabaseError(message), m_state(std::move(state)), m_connection(connection)
    {}

    [[nodiscard]] const std::string& State() const noexcept { return m_state; }
    [[nodiscard]] bool IsConnectionLost() const noexcept { return m_connection == Connection::Lost; }

private:
    std::string m_state;
    Connection m_connection;
};

} // namespace TLGateway

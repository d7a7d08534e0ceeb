#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace TLGateway {

// Where a database URL "postgresql://USER@HOST:PORT/NAME?PARAMETER=VALUE" leads, as PostgreSQL's client
// library reads it: what the URL leaves out comes from the environment (PGHOST, PGPASSFILE and so on).
class PostgresTarget final
{
public:
    // Throws std::invalid_argument with a text for the operator, which never shows a password.
    explicit PostgresTarget(std::string_view url);

    // Parameters for a connection by name. They include limits on the wait for a dead server, unless the
    // URL sets its own.
    [[nodiscard]] const std::vector<std::pair<std::string, std::string>>& Parameters() const noexcept
    {
        return m_parameters;
    }

    // The URL for the log: user, host, port and name, without password.
    [[nodiscard]] const std::string& Description() const noexcept { return m_description; }

private:
    [[nodiscard]] std::string Value(std::string_view name) const;
    void SetDefault(const char* name, const char* value);

    std::vector<std::pair<std::string, std::string>> m_parameters;
    std::string m_description;
};

} // namespace TLGateway

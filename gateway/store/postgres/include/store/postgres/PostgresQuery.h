#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct pg_result;

namespace TLGateway {

class PostgresConnection;

struct PostgresResultDeleter
{
    void operator()(pg_result* result) const noexcept;
};
using PostgresResult = std::unique_ptr<pg_result, PostgresResultDeleter>;

// PostgreSQL keeps no NUL within a text. It is written as U+0001 and "0", and U+0001 itself as U+0001 and
// "1", so that every text comes back as it was and two that differ never become one.
[[nodiscard]] std::string ToPostgresText(std::string_view text);
[[nodiscard]] std::string FromPostgresText(std::string_view stored);

// One run of a prepared statement. Parameters count from 1 and are bound in their order, columns count from
// 0. It runs at the first Step or at Run, which throw PostgresError.
class PostgresQuery final
{
public:
    // The connection must outlive the query.
    PostgresQuery(PostgresConnection& connection, std::string statement);

    PostgresQuery& BindText(std::string_view text);
    PostgresQuery& BindBlob(std::string_view bytes);
    PostgresQuery& BindInteger(std::int64_t value);
    PostgresQuery& BindBoolean(bool value);

    // True while there is a row to look at.
    [[nodiscard]] bool Step();
    // Gives the number of rows that the statement changed.
    std::size_t Run();

    [[nodiscard]] std::string Text(int column) const;
    [[nodiscard]] std::string Blob(int column) const;
    [[nodiscard]] std::int64_t Integer(int column) const;
    [[nodiscard]] bool Boolean(int column) const;

private:
    friend class PostgresConnection;

    struct Parameter
    {
        std::string value;
        bool isBinary;
    };

    [[nodiscard]] std::string_view Raw(int column) const;

    PostgresConnection& m_connection;
    const std::string m_statement;
    std::vector<Parameter> m_parameters;
    PostgresResult m_result;
    int m_row = -1;
};

} // namespace TLGateway

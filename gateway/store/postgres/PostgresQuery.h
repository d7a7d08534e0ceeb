#pragma once

#include "store/rows/IQuery.h"

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
// "1", so that every text comes back unchanged and different texts stay different.
[[nodiscard]] std::string ToPostgresText(std::string_view text);
[[nodiscard]] std::string FromPostgresText(std::string_view stored);

// One run of a prepared statement. It runs at the first Step or at Run.
class PostgresQuery final : public IQuery
{
public:
    // The connection must outlive the query.
    PostgresQuery(PostgresConnection& connection, std::string statement);

    IQuery& BindText(std::string_view text) override;
    IQuery& BindBlob(std::string_view bytes) override;
    IQuery& BindInteger(std::int64_t value) override;
    IQuery& BindBoolean(bool value) override;

    [[nodiscard]] bool Step() override;
    std::size_t Run() override;

    [[nodiscard]] std::string Text(int column) const override;
    [[nodiscard]] std::string Blob(int column) const override;
    [[nodiscard]] std::int64_t Integer(int column) const override;
    [[nodiscard]] bool Boolean(int column) const override;

    [[noreturn]] void ThrowDamaged(const std::string& finding) const override;

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

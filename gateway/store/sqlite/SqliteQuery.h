#pragma once

#include "store/rows/IQuery.h"

struct sqlite3_stmt;

namespace TLGateway {

// One run of a prepared statement; the statement is reset when the run ends.
class SqliteQuery final : public IQuery
{
public:
    explicit SqliteQuery(sqlite3_stmt* statement) noexcept;
    ~SqliteQuery() override;

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
    void Check(int result) const;

    sqlite3_stmt* const m_statement;
    int m_bound = 0;
};

} // namespace TLGateway

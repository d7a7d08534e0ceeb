#pragma once

#include "store/rows/IDialect.h"

namespace TLGateway {

// PostgreSQL's SQL. What belongs together is one statement, since each costs a round trip to the server.
class PostgresDialect final : public IDialect
{
public:
    [[nodiscard]] std::string UserTable() const override;
    [[nodiscard]] std::string SecondsOf(std::string_view column) const override;
    [[nodiscard]] std::string TimeOf(std::string_view parameter) const override;

    void EndAccess(IConnection& connection, const std::string& pin) const override;
    void AddToken(IConnection& connection, const TokenRecord& token, UnixTime forgetBefore) const override;
    void AddLoginFailure(IConnection& connection, const std::string& pin, UnixTime at,
                         UnixTime forgetBefore) const override;
    void AddRevision(IConnection& connection, const Revision& revision,
                     std::int64_t lastDropped) const override;
    void ClearApps(IConnection& connection) const override;
};

} // namespace TLGateway

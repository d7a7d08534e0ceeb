#pragma once

#include "base/Clock.h"
#include "records/TokenRecord.h"
#include "store/rows/IConnection.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace TLGateway {

// Where the SQL of the engines differs. Any thread.
class IDialect
{
public:
    struct Revision
    {
        std::string pin;
        std::int64_t number = 0;
        std::string author;
        UnixTime writtenAt = 0;
        std::string document;
    };

    IDialect() = default;
    IDialect(const IDialect&) = delete;
    IDialect& operator=(const IDialect&) = delete;
    virtual ~IDialect() = default;

    [[nodiscard]] virtual std::string UserTable() const = 0;
    // Expressions: a time column as seconds, and a parameter in seconds as a time.
    [[nodiscard]] virtual std::string SecondsOf(std::string_view column) const = 0;
    [[nodiscard]] virtual std::string TimeOf(std::string_view parameter) const = 0;

    // Drops the tokens and failed log-ins of a user.
    virtual void EndAccess(IConnection& connection, const std::string& pin) const = 0;
    // Adds the token, drops the failed log-ins of its user and all tokens that expired before `forgetBefore`.
    virtual void AddToken(IConnection& connection, const TokenRecord& token, UnixTime forgetBefore) const = 0;
    // Adds the failed log-in and drops those of any user from before `forgetBefore`.
    virtual void AddLoginFailure(IConnection& connection, const std::string& pin, UnixTime at,
                                 UnixTime forgetBefore) const = 0;
    // Adds the revision and drops those of its user up to `lastDropped`.
    virtual void AddRevision(IConnection& connection, const Revision& revision,
                             std::int64_t lastDropped) const = 0;
    // Empties the catalogue; until the commit no other gateway writes to it.
    virtual void ClearApps(IConnection& connection) const = 0;
};

} // namespace TLGateway

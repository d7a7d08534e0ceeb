#include "PostgresDialect.h"

namespace TLGateway {

std::string PostgresDialect::UserTable() const
{
    return "gateway_user";
}

std::string PostgresDialect::SecondsOf(std::string_view column) const
{
    return "extract(epoch FROM " + std::string(column) + ")::bigint";
}

std::string PostgresDialect::TimeOf(std::string_view parameter) const
{
    return "to_timestamp(" + std::string(parameter) + "::bigint)";
}

void PostgresDialect::EndAccess(IConnection& connection, const std::string& pin) const
{
    connection
        .Query("WITH failures AS (DELETE FROM login_failure WHERE pin = $1) "
               "DELETE FROM access_token WHERE pin = $1")
        ->BindText(pin)
        .Run();
}

// Skips rows that another gateway is dropping, so it never waits for them.
void PostgresDialect::AddToken(IConnection& connection, const TokenRecord& token, UnixTime forgetBefore) const
{
    connection
        .Query("WITH expired AS (DELETE FROM access_token WHERE hash IN "
               "(SELECT hash FROM access_token WHERE expires_at < to_timestamp($6::bigint) "
               "FOR UPDATE SKIP LOCKED)), "
               "failures AS (DELETE FROM login_failure WHERE pin = $2) "
               "INSERT INTO access_token (hash, pin, belong_type, device_id, expires_at) "
               "VALUES ($1, $2, $3, $4, to_timestamp($5::bigint))")
        ->BindBlob(token.hash)
        .BindText(token.pin)
        .BindText(token.belongType)
        .BindText(token.deviceId)
        .BindInteger(token.expiresAt)
        .BindInteger(forgetBefore)
        .Run();
}

// Skips like AddToken.
void PostgresDialect::AddLoginFailure(IConnection& connection, const std::string& pin, UnixTime at,
                                      UnixTime forgetBefore) const
{
    connection
        .Query("WITH old AS (DELETE FROM login_failure WHERE id IN "
               "(SELECT id FROM login_failure WHERE failed_at < to_timestamp($3::bigint) "
               "FOR UPDATE SKIP LOCKED)) "
               "INSERT INTO login_failure (pin, failed_at) VALUES ($1, to_timestamp($2::bigint))")
        ->BindText(pin)
        .BindInteger(at)
        .BindInteger(forgetBefore)
        .Run();
}

void PostgresDialect::AddRevision(IConnection& connection, const Revision& revision,
                                  std::int64_t lastDropped) const
{
    connection
        .Query("WITH old AS (DELETE FROM configuration WHERE pin = $1 AND revision <= $6) "
               "INSERT INTO configuration (pin, revision, author, written_at, document) "
               "VALUES ($1, $2, $3, to_timestamp($4::bigint), $5)")
        ->BindText(revision.pin)
        .BindInteger(revision.number)
        .BindText(revision.author)
        .BindInteger(revision.writtenAt)
        .BindText(revision.document)
        .BindInteger(lastDropped)
        .Run();
}

// When two gateways do this at once, the second waits and then sees what the first stored.
void PostgresDialect::ClearApps(IConnection& connection) const
{
    connection.Query("LOCK TABLE app IN SHARE ROW EXCLUSIVE MODE")->Run();
    connection.Query("DELETE FROM app")->Run();
}

} // namespace TLGateway

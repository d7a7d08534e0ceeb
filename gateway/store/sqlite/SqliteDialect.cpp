#include "SqliteDialect.h"

namespace TLGateway {

namespace {

void ForgetFailures(IConnection& connection, const std::string& pin)
{
    connection.Query("DELETE FROM login_failure WHERE pin = $1")->BindText(pin).Run();
}

} // namespace

std::string SqliteDialect::UserTable() const
{
    return "user";
}

std::string SqliteDialect::SecondsOf(std::string_view column) const
{
    return std::string(column);
}

std::string SqliteDialect::TimeOf(std::string_view parameter) const
{
    return std::string(parameter);
}

void SqliteDialect::EndAccess(IConnection& connection, const std::string& pin) const
{
    connection.Query("DELETE FROM access_token WHERE pin = $1")->BindText(pin).Run();
    ForgetFailures(connection, pin);
}

void SqliteDialect::AddToken(IConnection& connection, const TokenRecord& token, UnixTime forgetBefore) const
{
    connection.Query("DELETE FROM access_token WHERE expires_at < $1")->BindInteger(forgetBefore).Run();
    ForgetFailures(connection, token.pin);
    connection
        .Query("INSERT INTO access_token (hash, pin, belong_type, device_id, expires_at) "
               "VALUES ($1, $2, $3, $4, $5)")
        ->BindBlob(token.hash)
        .BindText(token.pin)
        .BindText(token.belongType)
        .BindText(token.deviceId)
        .BindInteger(token.expiresAt)
        .Run();
}

void SqliteDialect::AddLoginFailure(IConnection& connection, const std::string& pin, UnixTime at,
                                    UnixTime forgetBefore) const
{
    connection.Query("DELETE FROM login_failure WHERE failed_at < $1")->BindInteger(forgetBefore).Run();
    connection.Query("INSERT INTO login_failure (pin, failed_at) VALUES ($1, $2)")
        ->BindText(pin)
        .BindInteger(at)
        .Run();
}

void SqliteDialect::AddRevision(IConnection& connection, const Revision& revision,
                                std::int64_t lastDropped) const
{
    connection
        .Query("INSERT INTO configuration (pin, revision, author, written_at, document) "
               "VALUES ($1, $2, $3, $4, $5)")
        ->BindText(revision.pin)
        .BindInteger(revision.number)
        .BindText(revision.author)
        .BindInteger(revision.writtenAt)
        .BindText(revision.document)
        .Run();
    connection.Query("DELETE FROM configuration WHERE pin = $1 AND revision <= $2")
        ->BindText(revision.pin)
        .BindInteger(lastDropped)
        .Run();
}

void SqliteDialect::ClearApps(IConnection& connection) const
{
    connection.Query("DELETE FROM app")->Run();
}

} // namespace TLGateway

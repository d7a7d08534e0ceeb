#include "PostgresSchema.h"

#include "PostgresError.h"

#include <optional>
#include <stdexcept>
#include <string>

namespace TLGateway {

namespace {

// "TLGW", so that the lock is not one of another program.
constexpr std::int64_t MigrationLock = 0x544C4757;

// Texts are compared byte by byte, as the gateway itself does. A document stays json: jsonb cannot keep
// "\u0000", and would put the members into another order. A service code may be longer than an ordered index
// takes, a hash of it may not.
constexpr const char* Version1 = R"sql(
CREATE TABLE gateway_user (
    pin           text COLLATE "C" PRIMARY KEY,
    belong_type   text NOT NULL,
    password_hash text NOT NULL
);

CREATE TABLE access_token (
    hash        bytea PRIMARY KEY,
    pin         text COLLATE "C" NOT NULL REFERENCES gateway_user (pin) ON DELETE CASCADE,
    belong_type text NOT NULL,
    device_id   text NOT NULL,
    expires_at  timestamptz NOT NULL
);
CREATE INDEX access_token_by_pin ON access_token (pin);
CREATE INDEX access_token_by_expiry ON access_token (expires_at);

CREATE TABLE login_failure (
    id        bigint GENERATED ALWAYS AS IDENTITY PRIMARY KEY,
    pin       text COLLATE "C" NOT NULL,
    failed_at timestamptz NOT NULL
);
CREATE INDEX login_failure_by_pin ON login_failure (pin, failed_at);
CREATE INDEX login_failure_by_time ON login_failure (failed_at);

CREATE TABLE configuration (
    pin        text COLLATE "C" NOT NULL REFERENCES gateway_user (pin) ON DELETE CASCADE,
    revision   bigint NOT NULL,
    author     text NOT NULL,
    written_at timestamptz NOT NULL,
    document   json NOT NULL,
    PRIMARY KEY (pin, revision)
);

CREATE TABLE app (
    position     integer PRIMARY KEY,
    name         text NOT NULL,
    service_code text NOT NULL,
    icon_url     text NOT NULL,
    address      text NOT NULL,
    availability integer NOT NULL,
    CONSTRAINT app_service_code_once EXCLUDE USING hash (service_code WITH =)
);

CREATE TABLE function_switch (
    number  integer PRIMARY KEY,
    valid   boolean NOT NULL,
    display boolean NOT NULL
);

CREATE TABLE app_key (
    app_key text COLLATE "C" PRIMARY KEY,
    secret  text NOT NULL
);

-- The number of the last transaction of each gateway that writes: what tells, after a connection was lost,
-- whether the transaction that was under way is stored.
CREATE TABLE write_receipt (
    writer     text PRIMARY KEY,
    number     bigint NOT NULL,
    written_at timestamptz NOT NULL
);
)sql";

// Nothing when the gateway's schema is not there. Reads the catalogue: to_regclass may
// still remember the schema as missing when another gateway has just created it.
std::optional<std::size_t> ReadVersion(PostgresConnection& connection)
{
    if (connection.SingleValue(
            "SELECT count(*) FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace "
            "WHERE n.nspname = 'tl_gateway' AND c.relname = 'schema_version'") != "1") {
        return std::nullopt;
    }
    const std::string version = connection.SingleValue("SELECT version FROM tl_gateway.schema_version");
    return version.empty() ? 0 : static_cast<std::size_t>(std::stoul(version));
}

// Tables of extensions do not count as those of another program.
void CheckOwner(PostgresConnection& connection)
{
    const bool isEmpty =
        connection.SingleValue(
            "SELECT NOT EXISTS (SELECT FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace "
            "WHERE n.nspname NOT LIKE 'pg\\_%' AND n.nspname <> 'information_schema' "
            "AND NOT EXISTS (SELECT FROM pg_depend d WHERE d.classid = 'pg_class'::regclass "
            "AND d.objid = c.oid AND d.deptype = 'e'))") == "t";
    const bool hasSchema =
        connection.SingleValue("SELECT count(*) FROM pg_namespace WHERE nspname = 'tl_gateway'") != "0";
    if (!isEmpty || hasSchema) {
        throw std::runtime_error("the database belongs to another program; create one for the gateway alone");
    }
}

void CheckNotNewer(std::size_t version, std::size_t known)
{
    if (version > known) {
        throw std::runtime_error("the database was written by a newer gateway (schema " +
                                 std::to_string(version) + ", this gateway knows " + std::to_string(known) +
                                 ")");
    }
}

// One script, or none when the newest version is there. False when there is nothing left to do.
bool MigrateOnce(PostgresConnection& connection, const std::vector<const char*>& scripts,
                 EmptyDatabase emptyDatabase)
{
    const auto lock = connection.Query("SELECT pg_advisory_xact_lock($1)");
    static_cast<void>(lock->BindInteger(MigrationLock).Step());
    // Read under the lock: another gateway may be migrating the same database.
    std::optional<std::size_t> version = ReadVersion(connection);
    if (!version) {
        CheckOwner(connection);
        if (emptyDatabase == EmptyDatabase::IsRefused) {
            throw std::runtime_error("the database is empty; a command that stores something fills it");
        }
        connection.Execute("CREATE SCHEMA tl_gateway; "
                           "CREATE TABLE schema_version (is_only boolean PRIMARY KEY DEFAULT true "
                           "CHECK (is_only), version integer NOT NULL); "
                           "INSERT INTO schema_version (version) VALUES (0)");
        version = 0;
    }
    CheckNotNewer(*version, scripts.size());
    if (*version == scripts.size()) {
        return false;
    }
    connection.Execute(scripts[*version]);
    connection.Query("UPDATE schema_version SET version = $1")
        ->BindInteger(static_cast<std::int64_t>(*version) + 1)
        .Run();
    return true;
}

} // namespace

const std::vector<const char*>& PostgresSchemaScripts()
{
    static const std::vector<const char*> scripts = {Version1};
    return scripts;
}

void MigrateSchema(PostgresConnection& connection, const std::vector<const char*>& scripts,
                   EmptyDatabase emptyDatabase)
{
    if (const auto version = ReadVersion(connection)) {
        CheckNotNewer(*version, scripts.size());
        if (*version == scripts.size()) {
            return; // without a wait for others
        }
    }
    for (bool isMore = true; isMore;) {
        connection.Execute("BEGIN ISOLATION LEVEL READ COMMITTED");
        try {
            isMore = MigrateOnce(connection, scripts, emptyDatabase);
            connection.Execute("COMMIT");
        } catch (...) {
            if (connection.IsInTransaction()) {
                connection.Execute("ROLLBACK");
            }
            throw;
        }
    }
}

} // namespace TLGateway

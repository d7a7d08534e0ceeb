#include "SqliteSchema.h"

#include <stdexcept>
#include <string>

namespace TLGateway {

namespace {

// "TLGW", so that the gateway does not write into a database of another program.
constexpr int ApplicationId = 0x544C4757;

constexpr const char* Version1 = R"sql(
CREATE TABLE user (
    pin           TEXT    NOT NULL PRIMARY KEY,
    belong_type   TEXT    NOT NULL,
    password_hash TEXT    NOT NULL
) STRICT;

CREATE TABLE access_token (
    hash        BLOB    NOT NULL PRIMARY KEY,
    pin         TEXT    NOT NULL REFERENCES user (pin) ON DELETE CASCADE,
    belong_type TEXT    NOT NULL,
    device_id   TEXT    NOT NULL,
    expires_at  INTEGER NOT NULL
) STRICT, WITHOUT ROWID;
CREATE INDEX access_token_by_pin ON access_token (pin);
CREATE INDEX access_token_by_expiry ON access_token (expires_at);

CREATE TABLE login_failure (
    pin       TEXT    NOT NULL,
    failed_at INTEGER NOT NULL
) STRICT;
CREATE INDEX login_failure_by_pin ON login_failure (pin, failed_at);
CREATE INDEX login_failure_by_time ON login_failure (failed_at);

CREATE TABLE configuration (
    pin        TEXT    NOT NULL REFERENCES user (pin) ON DELETE CASCADE,
    revision   INTEGER NOT NULL,
    author     TEXT    NOT NULL,
    written_at INTEGER NOT NULL,
    document   TEXT    NOT NULL,
    PRIMARY KEY (pin, revision)
) STRICT;

CREATE TABLE app (
    position     INTEGER NOT NULL PRIMARY KEY,
    name         TEXT    NOT NULL,
    service_code TEXT    NOT NULL UNIQUE,
    icon_url     TEXT    NOT NULL,
    address      TEXT    NOT NULL,
    availability INTEGER NOT NULL
) STRICT;

CREATE TABLE function_switch (
    number  INTEGER NOT NULL PRIMARY KEY,
    valid   INTEGER NOT NULL,
    display INTEGER NOT NULL
) STRICT;

CREATE TABLE app_key (
    app_key TEXT NOT NULL PRIMARY KEY,
    secret  TEXT NOT NULL
) STRICT, WITHOUT ROWID;
)sql";

std::size_t ReadVersion(SqliteConnection& connection)
{
    return static_cast<std::size_t>(std::stoul(connection.SingleValue("PRAGMA user_version")));
}

void CheckOwner(SqliteConnection& connection)
{
    const int owner = std::stoi(connection.SingleValue("PRAGMA application_id"));
    const bool isEmpty = connection.SingleValue("SELECT count(*) FROM sqlite_schema") == "0";
    if (owner != ApplicationId && !(owner == 0 && isEmpty)) {
        throw std::runtime_error("the file belongs to another program");
    }
}

} // namespace

const std::vector<const char*>& SchemaScripts()
{
    static const std::vector<const char*> scripts = {Version1};
    return scripts;
}

void MigrateSchema(SqliteConnection& connection, const std::vector<const char*>& scripts)
{
    CheckOwner(connection);
    if (ReadVersion(connection) == scripts.size()) {
        return; // without asking for the write lock, which another program may hold
    }
    for (;;) {
        connection.Execute("BEGIN IMMEDIATE");
        try {
            // Read within the transaction: another process may be migrating the same file.
            const std::size_t version = ReadVersion(connection);
            if (version > scripts.size()) {
                throw std::runtime_error("the file was written by a newer gateway (schema " +
                                         std::to_string(version) + ", this gateway knows " +
                                         std::to_string(scripts.size()) + ")");
            }
            if (version == scripts.size()) {
                connection.Execute("ROLLBACK");
                return;
            }
            connection.Execute(scripts[version]);
            connection.Execute(("PRAGMA application_id = " + std::to_string(ApplicationId)).c_str());
            connection.Execute(("PRAGMA user_version = " + std::to_string(version + 1)).c_str());
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

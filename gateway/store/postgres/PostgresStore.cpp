#include "store/postgres/PostgresStore.h"

#include "records/ConfigurationJson.h"
#include "store/StoreError.h"
#include "store/WriteRefused.h"
#include "store/postgres/PostgresAdvice.h"
#include "store/postgres/PostgresError.h"
#include "store/postgres/PostgresSchema.h"
#include "json/BusinessJson.h"
#include "json/InvalidInput.h"

#include <boost/json/serialize.hpp>
#include <spdlog/logger.h>

#include <utility>

namespace TLGateway {

namespace {

constexpr std::int64_t KeptRevisions = 20;
constexpr int OldestServer = 130000;
// Another gateway may be making the tables just now.
constexpr PostgresConnection::Limits MigrationLimits = {std::chrono::seconds(30), std::chrono::seconds(60),
                                                        std::chrono::seconds(65)};

StoredConfiguration ReadRevision(const PostgresQuery& query)
{
    StoredConfiguration stored;
    stored.revision = query.Integer(0);
    stored.author = query.Text(1);
    stored.writtenAt = query.Integer(2);
    try {
        const boost::json::value document = ParseBusinessJson(query.Text(3));
        stored.configuration =
            ReadConfiguration(JsonObjectReader(document, "$"), ConfigurationSource::Operator);
    } catch (const InvalidInput& invalid) {
        throw PostgresError("XX001", std::string("a stored configuration cannot be read: ") + invalid.what(),
                            PostgresError::Connection::Usable);
    }
    return stored;
}

StoredConfiguration NewestRevision(PostgresConnection& connection, const std::string& pin)
{
    PostgresQuery query =
        connection.Query("SELECT revision, author, extract(epoch FROM written_at)::bigint, document "
                         "FROM configuration WHERE pin = $1 ORDER BY revision DESC LIMIT 1");
    query.BindText(pin);
    return query.Step() ? ReadRevision(query) : StoredConfiguration();
}

// What the edit refuses undoes the write.
IStore::ConfigurationEdit RefusingEdit(IStore::ConfigurationEdit edit)
{
    return [edit = std::move(edit)](const AutoRunConfiguration& stored) {
        try {
            return edit(stored);
        } catch (const InvalidInput& invalid) {
            throw WriteRefused(WriteFailure(WriteFailure::Reason::EditRefused, invalid.what()));
        }
    };
}

void EndAccess(PostgresConnection& connection, const std::string& pin)
{
    connection
        .Query("WITH failures AS (DELETE FROM login_failure WHERE pin = $1) "
               "DELETE FROM access_token WHERE pin = $1")
        .BindText(pin)
        .Run();
}

} // namespace

PostgresStore::PostgresStore(Options options, std::shared_ptr<spdlog::logger> logger)
    : m_options(std::move(options))
    , m_target(m_options.url)
    , m_logger(std::move(logger))
    , m_readers([this] { return std::make_unique<PostgresConnection>(m_target, m_options.limits); },
                m_options.readers, m_options.limits.lock)
{
    Open();
    m_writer = std::make_unique<PostgresWriter>(
        [this] { return std::make_unique<PostgresConnection>(m_target, m_options.limits); },
        PostgresWriter::Options{m_target.Description(), m_options.queueLimit, m_options.doubtAtClose},
        m_logger);
}

PostgresStore::~PostgresStore()
{
    Close();
}

void PostgresStore::Close()
{
    m_readers.CloseIdle();
    m_writer->Close();
}

void PostgresStore::Open()
{
    try {
        PostgresConnection connection(m_target, MigrationLimits);
        if (connection.ServerVersion() < OldestServer) {
            throw std::runtime_error("the server is older than PostgreSQL 13");
        }
        if (connection.ServerEncoding() != "UTF8") {
            throw std::runtime_error("the database keeps texts as " + connection.ServerEncoding() +
                                     ", which cannot hold every text; make it with the encoding UTF8");
        }
        MigrateSchema(connection, PostgresSchemaScripts(),
                      m_options.mustExist ? EmptyDatabase::IsRefused : EmptyDatabase::IsFilled);
        if (connection.SingleValue("SELECT current_setting('fsync')") != "on") {
            m_logger->warn(
                "database {}: the server runs with fsync = off; a power failure there loses writes "
                "that were answered",
                m_target.Description());
        }
        // What gateways left that ended without a word.
        connection
            .Query("DELETE FROM write_receipt WHERE writer IN (SELECT writer FROM write_receipt "
                   "WHERE written_at < now() - interval '30 days' FOR UPDATE SKIP LOCKED)")
            .Run();
    } catch (const PostgresError& error) {
        throw StoreError(DescribeForOperator("opening", m_target.Description(), error));
    } catch (const std::runtime_error& problem) {
        throw StoreError("database " + m_target.Description() + ": " + problem.what());
    }
}

template <typename Read>
auto PostgresStore::WithReader(const char* what, Read read)
{
    try {
        for (;;) {
            const PostgresPool::Loan reader = m_readers.Borrow();
            try {
                return read(reader.Connection());
            } catch (const PostgresError& error) {
                if (!error.IsConnectionLost() || reader.IsNew()) {
                    throw;
                }
                // The server was started again, perhaps: none of the connections from before is any good.
                m_readers.CloseIdle();
            }
        }
    } catch (const PostgresError& error) {
        throw StoreError(DescribeForOperator(what, m_target.Description(), error));
    }
}

std::optional<UserRecord> PostgresStore::FindUser(const std::string& pin)
{
    return WithReader("reading a user", [&pin](PostgresConnection& connection) -> std::optional<UserRecord> {
        PostgresQuery query =
            connection.Query("SELECT pin, belong_type, password_hash FROM gateway_user WHERE pin = $1");
        query.BindText(pin);
        if (!query.Step()) {
            return std::nullopt;
        }
        return UserRecord{query.Text(0), query.Text(1), query.Text(2)};
    });
}

std::vector<UserRecord> PostgresStore::ListUsers()
{
    return WithReader("reading the users", [](PostgresConnection& connection) {
        std::vector<UserRecord> users;
        PostgresQuery query =
            connection.Query("SELECT pin, belong_type, password_hash FROM gateway_user ORDER BY pin");
        while (query.Step()) {
            users.push_back({query.Text(0), query.Text(1), query.Text(2)});
        }
        return users;
    });
}

std::optional<TokenRecord> PostgresStore::FindToken(const std::string& hash)
{
    return WithReader(
        "reading an access token", [&hash](PostgresConnection& connection) -> std::optional<TokenRecord> {
            PostgresQuery query =
                connection.Query("SELECT hash, pin, belong_type, device_id, "
                                 "extract(epoch FROM expires_at)::bigint FROM access_token WHERE hash = $1");
            query.BindBlob(hash);
            if (!query.Step()) {
                return std::nullopt;
            }
            return TokenRecord{query.Blob(0), query.Text(1), query.Text(2), query.Text(3), query.Integer(4)};
        });
}

std::size_t PostgresStore::CountLoginFailures(const std::string& pin, UnixTime since)
{
    return WithReader("reading failed log-ins", [&pin, since](PostgresConnection& connection) {
        PostgresQuery query = connection.Query("SELECT count(*) FROM login_failure "
                                               "WHERE pin = $1 AND failed_at > to_timestamp($2::bigint)");
        query.BindText(pin).BindInteger(since);
        return query.Step() ? static_cast<std::size_t>(query.Integer(0)) : 0;
    });
}

std::optional<UnixTime> PostgresStore::FindLoginFailure(const std::string& pin, std::size_t nth)
{
    return WithReader(
        "reading failed log-ins", [&pin, nth](PostgresConnection& connection) -> std::optional<UnixTime> {
            PostgresQuery query =
                connection.Query("SELECT extract(epoch FROM failed_at)::bigint FROM login_failure "
                                 "WHERE pin = $1 ORDER BY failed_at DESC LIMIT 1 OFFSET $2::bigint");
            query.BindText(pin).BindInteger(static_cast<std::int64_t>(nth) - 1);
            if (!query.Step()) {
                return std::nullopt;
            }
            return query.Integer(0);
        });
}

StoredConfiguration PostgresStore::FindConfiguration(const std::string& pin)
{
    return WithReader("reading a configuration",
                      [&pin](PostgresConnection& connection) { return NewestRevision(connection, pin); });
}

std::vector<StoredConfiguration> PostgresStore::ListRevisions(const std::string& pin)
{
    return WithReader("reading the revisions of a configuration", [&pin](PostgresConnection& connection) {
        std::vector<StoredConfiguration> revisions;
        PostgresQuery query =
            connection.Query("SELECT revision, author, extract(epoch FROM written_at)::bigint, document "
                             "FROM configuration WHERE pin = $1 ORDER BY revision DESC");
        query.BindText(pin);
        while (query.Step()) {
            revisions.push_back(ReadRevision(query));
        }
        return revisions;
    });
}

std::vector<AppRecord> PostgresStore::ListApps()
{
    return WithReader("reading the apps", [](PostgresConnection& connection) {
        std::vector<AppRecord> apps;
        PostgresQuery query = connection.Query(
            "SELECT name, service_code, icon_url, address, availability FROM app ORDER BY position");
        while (query.Step()) {
            apps.push_back({query.Text(0), query.Text(1), query.Text(2), query.Text(3),
                            static_cast<int>(query.Integer(4))});
        }
        return apps;
    });
}

std::vector<FunctionSwitch> PostgresStore::ListSwitches()
{
    return WithReader("reading the function switches", [](PostgresConnection& connection) {
        std::vector<FunctionSwitch> switches;
        PostgresQuery query =
            connection.Query("SELECT number, valid, display FROM function_switch ORDER BY number");
        while (query.Step()) {
            switches.push_back({static_cast<int>(query.Integer(0)), query.Boolean(1), query.Boolean(2)});
        }
        return switches;
    });
}

std::map<std::string, std::string, std::less<>> PostgresStore::ListAppKeys()
{
    return WithReader("reading the app keys", [](PostgresConnection& connection) {
        std::map<std::string, std::string, std::less<>> keys;
        PostgresQuery query = connection.Query("SELECT app_key, secret FROM app_key");
        while (query.Step()) {
            keys.emplace(query.Text(0), query.Text(1));
        }
        return keys;
    });
}

void PostgresStore::AddUser(const UserRecord& user, WriteDone done)
{
    m_writer->Submit(
        "adding a user", user.pin,
        [user](PostgresConnection& connection) {
            // Waits when another gateway is adding the same user.
            const std::size_t added =
                connection
                    .Query("INSERT INTO gateway_user (pin, belong_type, password_hash) VALUES ($1, $2, $3) "
                           "ON CONFLICT (pin) DO NOTHING")
                    .BindText(user.pin)
                    .BindText(user.belongType)
                    .BindText(user.passwordHash)
                    .Run();
            if (added == 0) {
                throw WriteRefused(WriteFailure(WriteFailure::Reason::UserExists));
            }
        },
        std::move(done));
}

void PostgresStore::PutUser(const UserRecord& user, WriteDone done)
{
    m_writer->Submit(
        "storing a user", user.pin,
        [user](PostgresConnection& connection) {
            connection
                .Query("INSERT INTO gateway_user (pin, belong_type, password_hash) VALUES ($1, $2, $3) "
                       "ON CONFLICT (pin) DO UPDATE "
                       "SET belong_type = excluded.belong_type, password_hash = excluded.password_hash")
                .BindText(user.pin)
                .BindText(user.belongType)
                .BindText(user.passwordHash)
                .Run();
            EndAccess(connection, user.pin);
        },
        std::move(done));
}

void PostgresStore::SetPassword(const std::string& pin, const std::string& passwordHash, WriteDone done)
{
    m_writer->Submit(
        "changing a password", pin,
        [pin, passwordHash](PostgresConnection& connection) {
            const std::size_t changed =
                connection.Query("UPDATE gateway_user SET password_hash = $2 WHERE pin = $1")
                    .BindText(pin)
                    .BindText(passwordHash)
                    .Run();
            if (changed == 0) {
                throw WriteRefused(WriteFailure(WriteFailure::Reason::NoSuchUser));
            }
            EndAccess(connection, pin);
        },
        std::move(done));
}

// What another gateway is dropping, too, is left to it: nobody waits for that.
void PostgresStore::AddToken(const TokenRecord& token, UnixTime forgetBefore, WriteDone done)
{
    m_writer->Submit(
        "keeping an access token", token.pin,
        [token, forgetBefore](PostgresConnection& connection) {
            connection
                .Query("WITH expired AS (DELETE FROM access_token WHERE hash IN "
                       "(SELECT hash FROM access_token WHERE expires_at < to_timestamp($6::bigint) "
                       "FOR UPDATE SKIP LOCKED)), "
                       "failures AS (DELETE FROM login_failure WHERE pin = $2) "
                       "INSERT INTO access_token (hash, pin, belong_type, device_id, expires_at) "
                       "VALUES ($1, $2, $3, $4, to_timestamp($5::bigint))")
                .BindBlob(token.hash)
                .BindText(token.pin)
                .BindText(token.belongType)
                .BindText(token.deviceId)
                .BindInteger(token.expiresAt)
                .BindInteger(forgetBefore)
                .Run();
        },
        std::move(done));
}

void PostgresStore::RemoveToken(const std::string& hash, WriteDone done)
{
    m_writer->Submit(
        "ending an access token", {},
        [hash](PostgresConnection& connection) {
            connection.Query("DELETE FROM access_token WHERE hash = $1").BindBlob(hash).Run();
        },
        std::move(done));
}

void PostgresStore::AddLoginFailure(const std::string& pin, UnixTime at, UnixTime forgetBefore,
                                    WriteDone done)
{
    m_writer->Submit(
        "noting a failed log-in", {},
        [pin, at, forgetBefore](PostgresConnection& connection) {
            connection
                .Query("WITH old AS (DELETE FROM login_failure WHERE id IN "
                       "(SELECT id FROM login_failure WHERE failed_at < to_timestamp($3::bigint) "
                       "FOR UPDATE SKIP LOCKED)) "
                       "INSERT INTO login_failure (pin, failed_at) VALUES ($1, to_timestamp($2::bigint))")
                .BindText(pin)
                .BindInteger(at)
                .BindInteger(forgetBefore)
                .Run();
        },
        std::move(done));
}

void PostgresStore::EditConfiguration(const std::string& pin, const std::string& author,
                                      ConfigurationEdit edit, WriteDone done)
{
    m_writer->Submit(
        "storing a configuration", pin,
        [pin, author, edit = RefusingEdit(std::move(edit)),
         clock = m_options.clock](PostgresConnection& connection) {
            const StoredConfiguration stored = NewestRevision(connection, pin);
            const std::string document = boost::json::serialize(ToJson(edit(stored.configuration)));
            const std::int64_t revision = stored.revision + 1;
            connection
                .Query("WITH old AS (DELETE FROM configuration WHERE pin = $1 AND revision <= $6) "
                       "INSERT INTO configuration (pin, revision, author, written_at, document) "
                       "VALUES ($1, $2, $3, to_timestamp($4::bigint), $5)")
                .BindText(pin)
                .BindInteger(revision)
                .BindText(author)
                .BindInteger(clock())
                .BindText(document)
                .BindInteger(revision - KeptRevisions)
                .Run();
        },
        std::move(done));
}

void PostgresStore::ReplaceApps(const std::vector<AppRecord>& apps, WriteDone done)
{
    m_writer->Submit(
        "replacing the apps", {},
        [apps](PostgresConnection& connection) {
            // Of two gateways that do this at once, the second waits, and finds what the first has stored.
            connection.Execute("LOCK TABLE app IN SHARE ROW EXCLUSIVE MODE");
            connection.Query("DELETE FROM app").Run();
            std::int64_t position = 0;
            for (const AppRecord& app : apps) {
                connection
                    .Query("INSERT INTO app (position, name, service_code, icon_url, address, availability) "
                           "VALUES ($1, $2, $3, $4, $5, $6)")
                    .BindInteger(position++)
                    .BindText(app.name)
                    .BindText(app.serviceCode)
                    .BindText(app.iconUrl)
                    .BindText(app.address)
                    .BindInteger(app.availability)
                    .Run();
            }
        },
        std::move(done));
}

void PostgresStore::SetSwitch(const FunctionSwitch& functionSwitch, WriteDone done)
{
    m_writer->Submit(
        "setting a function switch", {},
        [functionSwitch](PostgresConnection& connection) {
            connection
                .Query(
                    "INSERT INTO function_switch (number, valid, display) VALUES ($1, $2, $3) "
                    "ON CONFLICT (number) DO UPDATE SET valid = excluded.valid, display = excluded.display")
                .BindInteger(functionSwitch.number)
                .BindBoolean(functionSwitch.valid)
                .BindBoolean(functionSwitch.display)
                .Run();
        },
        std::move(done));
}

void PostgresStore::SetAppKey(const std::string& appKey, const std::string& secret, WriteDone done)
{
    m_writer->Submit(
        "storing an app key", {},
        [appKey, secret](PostgresConnection& connection) {
            connection
                .Query("INSERT INTO app_key (app_key, secret) VALUES ($1, $2) "
                       "ON CONFLICT (app_key) DO UPDATE SET secret = excluded.secret")
                .BindText(appKey)
                .BindText(secret)
                .Run();
        },
        std::move(done));
}

} // namespace TLGateway

#include "store/sqlite/SqliteStore.h"

#include "records/ConfigurationJson.h"
#include "store/StoreError.h"
#include "store/WriteRefused.h"
#include "store/sqlite/SqliteAdvice.h"
#include "store/sqlite/SqliteSchema.h"
#include "json/BusinessJson.h"
#include "json/InvalidInput.h"

#include <boost/json/serialize.hpp>
#include <spdlog/logger.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

namespace TLGateway {

namespace {

constexpr std::int64_t KeptRevisions = 20;

void CheckIntegrity(const std::string& file, std::chrono::milliseconds busyTimeout)
{
    SqliteConnection connection(file, SqliteConnection::Mode::ReadOnly, busyTimeout);
    const std::string finding = connection.SingleValue("PRAGMA quick_check(1)");
    if (finding != "ok") {
        throw StoreError(
            "database " + file + ": the check of the file found damage: " + finding +
            ". The gateway does not start and has not changed the file: keep it for analysis and "
            "restore the last backup.");
    }
}

// The file holds secrets and password hashes, so a new one is for its owner alone. SQLite gives the files
// beside it the same rights.
void MakeOwnersFile(const std::filesystem::path& path)
{
    if (std::ofstream(path, std::ios::app)) {
        std::error_code ignored;
        std::filesystem::permissions(
            path, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write, ignored);
    }
}

std::unique_ptr<SqliteConnection> OpenForWriting(const SqliteStore::Options& options)
{
    const std::filesystem::path path = std::filesystem::u8path(options.file);
    std::error_code error;
    const bool exists = std::filesystem::exists(path, error);
    if (!exists && options.mustExist) {
        throw StoreError("database " + options.file + ": there is no such file");
    }
    if (exists && !std::filesystem::is_regular_file(path, error)) {
        throw StoreError("database " + options.file + ": this is not a file");
    }
    const std::filesystem::path folder = path.parent_path();
    if (!folder.empty() && !std::filesystem::is_directory(folder, error)) {
        throw StoreError("database " + options.file + ": the folder " + folder.u8string() +
                         " does not exist");
    }
    try {
        if (!exists) {
            MakeOwnersFile(path);
        } else if (options.checkIntegrity) {
            CheckIntegrity(options.file, options.busyTimeout);
        }
        auto connection = std::make_unique<SqliteConnection>(options.file, SqliteConnection::Mode::ReadWrite,
                                                             options.busyTimeout);
        MigrateSchema(*connection, SchemaScripts());
        const std::string mode = connection->SingleValue("PRAGMA journal_mode = WAL");
        if (mode != "wal") {
            throw StoreError("database " + options.file +
                             ": the file system offers no write-ahead log (journal mode " + mode +
                             "); keep the file on a local disk");
        }
        connection->Execute("PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON");
        if (options.maxPages > 0) {
            connection->Execute(("PRAGMA max_page_count = " + std::to_string(options.maxPages)).c_str());
        }
        return connection;
    } catch (const SqliteError& sqliteError) {
        throw StoreError(DescribeForOperator("opening", options.file, sqliteError));
    } catch (const StoreError&) {
        throw;
    } catch (const std::runtime_error& problem) {
        throw StoreError("database " + options.file + ": " + problem.what());
    }
}

StoredConfiguration ReadRevision(const SqliteQuery& query)
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
        throw SqliteError(SQLITE_CORRUPT,
                          std::string("a stored configuration cannot be read: ") + invalid.what());
    }
    return stored;
}

StoredConfiguration NewestRevision(SqliteConnection& connection, const std::string& pin)
{
    SqliteQuery query = connection.Query("SELECT revision, author, written_at, document FROM configuration "
                                         "WHERE pin = ?1 ORDER BY revision DESC LIMIT 1");
    query.BindText(1, pin);
    return query.Step() ? ReadRevision(query) : StoredConfiguration();
}

void PutUserRow(SqliteConnection& connection, const UserRecord& user)
{
    connection
        .Query("INSERT INTO user (pin, belong_type, password_hash) VALUES (?1, ?2, ?3) ON CONFLICT (pin) DO "
               "UPDATE "
               "SET belong_type = excluded.belong_type, password_hash = excluded.password_hash")
        .BindText(1, user.pin)
        .BindText(2, user.belongType)
        .BindText(3, user.passwordHash)
        .Run();
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

void EndAccess(SqliteConnection& connection, const std::string& pin)
{
    connection.Query("DELETE FROM access_token WHERE pin = ?1").BindText(1, pin).Run();
    connection.Query("DELETE FROM login_failure WHERE pin = ?1").BindText(1, pin).Run();
}

} // namespace

SqliteStore::SqliteStore(Options options, std::shared_ptr<spdlog::logger> logger)
    : m_options(std::move(options))
    , m_logger(std::move(logger))
    , m_writer(std::make_unique<SqliteWriter>(OpenForWriting(m_options), m_options.file, m_options.queueLimit,
                                              m_logger))
{}

SqliteStore::~SqliteStore()
{
    Close();
}

void SqliteStore::Close()
{
    {
        const std::lock_guard lock(m_readersMutex);
        m_readers.clear();
    }
    m_writer->Close();
}

template <typename Read>
auto SqliteStore::WithReader(const char* what, Read read)
{
    try {
        std::unique_ptr<SqliteConnection> reader = TakeReader();
        auto result = read(*reader);
        // After an error the connection is dropped instead: the next read starts with a fresh one.
        ReturnReader(std::move(reader));
        return result;
    } catch (const SqliteError& error) {
        throw StoreError(DescribeForOperator(what, m_options.file, error));
    }
}

std::unique_ptr<SqliteConnection> SqliteStore::TakeReader()
{
    {
        const std::lock_guard lock(m_readersMutex);
        if (!m_readers.empty()) {
            auto reader = std::move(m_readers.back());
            m_readers.pop_back();
            return reader;
        }
    }
    return std::make_unique<SqliteConnection>(m_options.file, SqliteConnection::Mode::ReadOnly,
                                              m_options.busyTimeout);
}

void SqliteStore::ReturnReader(std::unique_ptr<SqliteConnection> reader)
{
    const std::lock_guard lock(m_readersMutex);
    m_readers.push_back(std::move(reader));
}

std::optional<UserRecord> SqliteStore::FindUser(const std::string& pin)
{
    return WithReader("reading a user", [&pin](SqliteConnection& connection) -> std::optional<UserRecord> {
        SqliteQuery query =
            connection.Query("SELECT pin, belong_type, password_hash FROM user WHERE pin = ?1");
        query.BindText(1, pin);
        if (!query.Step()) {
            return std::nullopt;
        }
        return UserRecord{query.Text(0), query.Text(1), query.Text(2)};
    });
}

std::vector<UserRecord> SqliteStore::ListUsers()
{
    return WithReader("reading the users", [](SqliteConnection& connection) {
        std::vector<UserRecord> users;
        SqliteQuery query = connection.Query("SELECT pin, belong_type, password_hash FROM user ORDER BY pin");
        while (query.Step()) {
            users.push_back({query.Text(0), query.Text(1), query.Text(2)});
        }
        return users;
    });
}

std::optional<TokenRecord> SqliteStore::FindToken(const std::string& hash)
{
    return WithReader(
        "reading an access token", [&hash](SqliteConnection& connection) -> std::optional<TokenRecord> {
            SqliteQuery query = connection.Query(
                "SELECT hash, pin, belong_type, device_id, expires_at FROM access_token WHERE hash = ?1");
            query.BindBlob(1, hash);
            if (!query.Step()) {
                return std::nullopt;
            }
            return TokenRecord{query.Blob(0), query.Text(1), query.Text(2), query.Text(3), query.Integer(4)};
        });
}

std::size_t SqliteStore::CountLoginFailures(const std::string& pin, UnixTime since)
{
    return WithReader("reading failed log-ins", [&pin, since](SqliteConnection& connection) {
        SqliteQuery query =
            connection.Query("SELECT count(*) FROM login_failure WHERE pin = ?1 AND failed_at > ?2");
        query.BindText(1, pin).BindInteger(2, since);
        return query.Step() ? static_cast<std::size_t>(query.Integer(0)) : 0;
    });
}

std::optional<UnixTime> SqliteStore::FindLoginFailure(const std::string& pin, std::size_t nth)
{
    return WithReader(
        "reading failed log-ins", [&pin, nth](SqliteConnection& connection) -> std::optional<UnixTime> {
            SqliteQuery query = connection.Query("SELECT failed_at FROM login_failure WHERE pin = ?1 "
                                                 "ORDER BY failed_at DESC LIMIT 1 OFFSET ?2");
            query.BindText(1, pin).BindInteger(2, static_cast<std::int64_t>(nth) - 1);
            if (!query.Step()) {
                return std::nullopt;
            }
            return query.Integer(0);
        });
}

StoredConfiguration SqliteStore::FindConfiguration(const std::string& pin)
{
    return WithReader("reading a configuration",
                      [&pin](SqliteConnection& connection) { return NewestRevision(connection, pin); });
}

std::vector<StoredConfiguration> SqliteStore::ListRevisions(const std::string& pin)
{
    return WithReader("reading the revisions of a configuration", [&pin](SqliteConnection& connection) {
        std::vector<StoredConfiguration> revisions;
        SqliteQuery query =
            connection.Query("SELECT revision, author, written_at, document FROM configuration "
                             "WHERE pin = ?1 ORDER BY revision DESC");
        query.BindText(1, pin);
        while (query.Step()) {
            revisions.push_back(ReadRevision(query));
        }
        return revisions;
    });
}

std::vector<AppRecord> SqliteStore::ListApps()
{
    return WithReader("reading the apps", [](SqliteConnection& connection) {
        std::vector<AppRecord> apps;
        SqliteQuery query = connection.Query(
            "SELECT name, service_code, icon_url, address, availability FROM app ORDER BY position");
        while (query.Step()) {
            apps.push_back({query.Text(0), query.Text(1), query.Text(2), query.Text(3),
                            static_cast<int>(query.Integer(4))});
        }
        return apps;
    });
}

std::vector<FunctionSwitch> SqliteStore::ListSwitches()
{
    return WithReader("reading the function switches", [](SqliteConnection& connection) {
        std::vector<FunctionSwitch> switches;
        SqliteQuery query =
            connection.Query("SELECT number, valid, display FROM function_switch ORDER BY number");
        while (query.Step()) {
            switches.push_back(
                {static_cast<int>(query.Integer(0)), query.Integer(1) != 0, query.Integer(2) != 0});
        }
        return switches;
    });
}

std::map<std::string, std::string, std::less<>> SqliteStore::ListAppKeys()
{
    return WithReader("reading the app keys", [](SqliteConnection& connection) {
        std::map<std::string, std::string, std::less<>> keys;
        SqliteQuery query = connection.Query("SELECT app_key, secret FROM app_key");
        while (query.Step()) {
            keys.emplace(query.Text(0), query.Text(1));
        }
        return keys;
    });
}

void SqliteStore::AddUser(const UserRecord& user, WriteDone done)
{
    m_writer->Submit(
        "adding a user",
        [user](SqliteConnection& connection) {
            connection
                .Query("INSERT INTO user (pin, belong_type, password_hash) VALUES (?1, ?2, ?3) "
                       "ON CONFLICT (pin) DO NOTHING")
                .BindText(1, user.pin)
                .BindText(2, user.belongType)
                .BindText(3, user.passwordHash)
                .Run();
            if (connection.ChangedRows() == 0) {
                throw WriteRefused(WriteFailure(WriteFailure::Reason::UserExists));
            }
        },
        std::move(done));
}

void SqliteStore::PutUser(const UserRecord& user, WriteDone done)
{
    m_writer->Submit(
        "storing a user",
        [user](SqliteConnection& connection) {
            PutUserRow(connection, user);
            EndAccess(connection, user.pin);
        },
        std::move(done));
}

void SqliteStore::SetPassword(const std::string& pin, const std::string& passwordHash, WriteDone done)
{
    m_writer->Submit(
        "changing a password",
        [pin, passwordHash](SqliteConnection& connection) {
            connection.Query("UPDATE user SET password_hash = ?2 WHERE pin = ?1")
                .BindText(1, pin)
                .BindText(2, passwordHash)
                .Run();
            if (connection.ChangedRows() == 0) {
                throw WriteRefused(WriteFailure(WriteFailure::Reason::NoSuchUser));
            }
            EndAccess(connection, pin);
        },
        std::move(done));
}

void SqliteStore::AddToken(const TokenRecord& token, UnixTime forgetBefore, WriteDone done)
{
    m_writer->Submit(
        "keeping an access token",
        [token, forgetBefore](SqliteConnection& connection) {
            connection.Query("DELETE FROM access_token WHERE expires_at < ?1")
                .BindInteger(1, forgetBefore)
                .Run();
            connection.Query("DELETE FROM login_failure WHERE pin = ?1").BindText(1, token.pin).Run();
            connection
                .Query("INSERT INTO access_token (hash, pin, belong_type, device_id, expires_at) "
                       "VALUES (?1, ?2, ?3, ?4, ?5)")
                .BindBlob(1, token.hash)
                .BindText(2, token.pin)
                .BindText(3, token.belongType)
                .BindText(4, token.deviceId)
                .BindInteger(5, token.expiresAt)
                .Run();
        },
        std::move(done));
}

void SqliteStore::RemoveToken(const std::string& hash, WriteDone done)
{
    m_writer->Submit(
        "ending an access token",
        [hash](SqliteConnection& connection) {
            connection.Query("DELETE FROM access_token WHERE hash = ?1").BindBlob(1, hash).Run();
        },
        std::move(done));
}

void SqliteStore::AddLoginFailure(const std::string& pin, UnixTime at, UnixTime forgetBefore, WriteDone done)
{
    m_writer->Submit(
        "noting a failed log-in",
        [pin, at, forgetBefore](SqliteConnection& connection) {
            connection.Query("DELETE FROM login_failure WHERE failed_at < ?1")
                .BindInteger(1, forgetBefore)
                .Run();
            connection.Query("INSERT INTO login_failure (pin, failed_at) VALUES (?1, ?2)")
                .BindText(1, pin)
                .BindInteger(2, at)
                .Run();
        },
        std::move(done));
}

void SqliteStore::EditConfiguration(const std::string& pin, const std::string& author, ConfigurationEdit edit,
                                    WriteDone done)
{
    m_writer->Submit(
        "storing a configuration",
        [pin, author, edit = RefusingEdit(std::move(edit)),
         clock = m_options.clock](SqliteConnection& connection) {
            const StoredConfiguration stored = NewestRevision(connection, pin);
            const std::string document = boost::json::serialize(ToJson(edit(stored.configuration)));
            const std::int64_t revision = stored.revision + 1;
            connection
                .Query("INSERT INTO configuration (pin, revision, author, written_at, document) "
                       "VALUES (?1, ?2, ?3, ?4, ?5)")
                .BindText(1, pin)
                .BindInteger(2, revision)
                .BindText(3, author)
                .BindInteger(4, clock())
                .BindText(5, document)
                .Run();
            connection.Query("DELETE FROM configuration WHERE pin = ?1 AND revision <= ?2")
                .BindText(1, pin)
                .BindInteger(2, revision - KeptRevisions)
                .Run();
        },
        std::move(done));
}

void SqliteStore::ReplaceApps(const std::vector<AppRecord>& apps, WriteDone done)
{
    m_writer->Submit(
        "replacing the apps",
        [apps](SqliteConnection& connection) {
            connection.Query("DELETE FROM app").Run();
            std::int64_t position = 0;
            for (const AppRecord& app : apps) {
                connection
                    .Query("INSERT INTO app (position, name, service_code, icon_url, address, availability) "
                           "VALUES (?1, ?2, ?3, ?4, ?5, ?6)")
                    .BindInteger(1, position++)
                    .BindText(2, app.name)
                    .BindText(3, app.serviceCode)
                    .BindText(4, app.iconUrl)
                    .BindText(5, app.address)
                    .BindInteger(6, app.availability)
                    .Run();
            }
        },
        std::move(done));
}

void SqliteStore::SetSwitch(const FunctionSwitch& functionSwitch, WriteDone done)
{
    m_writer->Submit(
        "setting a function switch",
        [functionSwitch](SqliteConnection& connection) {
            connection
                .Query(
                    "INSERT INTO function_switch (number, valid, display) VALUES (?1, ?2, ?3) "
                    "ON CONFLICT (number) DO UPDATE SET valid = excluded.valid, display = excluded.display")
                .BindInteger(1, functionSwitch.number)
                .BindInteger(2, functionSwitch.valid ? 1 : 0)
                .BindInteger(3, functionSwitch.display ? 1 : 0)
                .Run();
        },
        std::move(done));
}

void SqliteStore::SetAppKey(const std::string& appKey, const std::string& secret, WriteDone done)
{
    m_writer->Submit(
        "storing an app key",
        [appKey, secret](SqliteConnection& connection) {
            connection
                .Query("INSERT INTO app_key (app_key, secret) VALUES (?1, ?2) "
                       "ON CONFLICT (app_key) DO UPDATE SET secret = excluded.secret")
                .BindText(1, appKey)
                .BindText(2, secret)
                .Run();
        },
        std::move(done));
}

} // namespace TLGateway

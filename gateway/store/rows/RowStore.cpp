#include "store/rows/RowStore.h"

#include "ReadRow.h"
#include "Statements.h"
#include "records/ConfigurationJson.h"
#include "store/rows/WriteRefused.h"
#include "json/InvalidInput.h"

#include <boost/json/serialize.hpp>

#include <utility>

namespace TLGateway {

namespace {

constexpr std::int64_t KeptRevisions = 20;

// Gives the result of the last run of `read`.
template <typename ReadFunction>
auto ReadWith(IEngine& engine, const char* what, ReadFunction read)
{
    std::optional<decltype(read(std::declval<IConnection&>()))> result;
    engine.Read(what, [&](IConnection& connection) { result.emplace(read(connection)); });
    return *std::move(result);
}

template <typename Record>
std::optional<Record> ReadOne(IQuery& query, Record (*readRow)(const IQuery&))
{
    return query.Step() ? std::optional(readRow(query)) : std::nullopt;
}

template <typename Record>
std::vector<Record> ReadAll(IQuery& query, Record (*readRow)(const IQuery&))
{
    std::vector<Record> records;
    while (query.Step()) {
        records.push_back(readRow(query));
    }
    return records;
}

StoredConfiguration NewestRevision(IConnection& connection, const Statements& statements,
                                   const std::string& pin)
{
    const auto query = connection.Query(statements.findNewestRevision);
    return ReadOne(query->BindText(pin), &ReadRevision).value_or(StoredConfiguration());
}

std::string EditedDocument(const IStore::ConfigurationEdit& edit, const AutoRunConfiguration& stored)
{
    try {
        return boost::json::serialize(ToJson(edit(stored)));
    } catch (const InvalidInput& invalid) {
        throw WriteRefused(WriteFailure(WriteFailure::Reason::EditRefused, invalid.what()));
    }
}

} // namespace

RowStore::RowStore(std::unique_ptr<IEngine> engine, Clock clock)
    : m_clock(std::move(clock))
    , m_statements(std::make_unique<Statements>(engine->Dialect()))
    , m_engine(std::move(engine))
{}

RowStore::~RowStore()
{
    m_engine->Close(); // the writes that wait use this store
}

void RowStore::Close()
{
    m_engine->Close();
}

std::optional<UserRecord> RowStore::FindUser(const std::string& pin)
{
    return ReadWith(*m_engine, "reading a user", [&](IConnection& connection) {
        const auto query = connection.Query(m_statements->findUser);
        return ReadOne(query->BindText(pin), &ReadUser);
    });
}

std::vector<UserRecord> RowStore::ListUsers()
{
    return ReadWith(*m_engine, "reading the users", [&](IConnection& connection) {
        return ReadAll(*connection.Query(m_statements->listUsers), &ReadUser);
    });
}

std::optional<TokenRecord> RowStore::FindToken(const std::string& hash)
{
    return ReadWith(*m_engine, "reading an access token", [&](IConnection& connection) {
        const auto query = connection.Query(m_statements->findToken);
        return ReadOne(query->BindBlob(hash), &ReadToken);
    });
}

std::size_t RowStore::CountLoginFailures(const std::string& pin, UnixTime since)
{
    return ReadWith(*m_engine, "reading failed log-ins", [&](IConnection& connection) {
        const auto query = connection.Query(m_statements->countLoginFailures);
        query->BindText(pin).BindInteger(since);
        return query->Step() ? static_cast<std::size_t>(query->Integer(0)) : 0;
    });
}

std::optional<UnixTime> RowStore::FindLoginFailure(const std::string& pin, std::size_t nth)
{
    return ReadWith(*m_engine, "reading failed log-ins", [&](IConnection& connection) {
        const auto query = connection.Query(m_statements->findLoginFailure);
        query->BindText(pin).BindInteger(static_cast<std::int64_t>(nth) - 1);
        return query->Step() ? std::optional<UnixTime>(query->Integer(0)) : std::nullopt;
    });
}

StoredConfiguration RowStore::FindConfiguration(const std::string& pin)
{
    return ReadWith(*m_engine, "reading a configuration",
                    [&](IConnection& connection) { return NewestRevision(connection, *m_statements, pin); });
}

std::vector<StoredConfiguration> RowStore::ListRevisions(const std::string& pin)
{
    return ReadWith(*m_engine, "reading the revisions of a configuration", [&](IConnection& connection) {
        const auto query = connection.Query(m_statements->listRevisions);
        return ReadAll(query->BindText(pin), &ReadRevision);
    });
}

std::vector<AppRecord> RowStore::ListApps()
{
    return ReadWith(*m_engine, "reading the apps", [](IConnection& connection) {
        const auto query = connection.Query(
            "SELECT name, service_code, icon_url, address, availability FROM app ORDER BY position");
        return ReadAll(*query, &ReadApp);
    });
}

std::vector<FunctionSwitch> RowStore::ListSwitches()
{
    return ReadWith(*m_engine, "reading the function switches", [](IConnection& connection) {
        const auto query =
            connection.Query("SELECT number, valid, display FROM function_switch ORDER BY number");
        return ReadAll(*query, &ReadSwitch);
    });
}

std::map<std::string, std::string, std::less<>> RowStore::ListAppKeys()
{
    return ReadWith(*m_engine, "reading the app keys", [](IConnection& connection) {
        std::map<std::string, std::string, std::less<>> keys;
        const auto query = connection.Query("SELECT app_key, secret FROM app_key");
        while (query->Step()) {
            keys.emplace(query->Text(0), query->Text(1));
        }
        return keys;
    });
}

void RowStore::AddUser(const UserRecord& user, WriteDone done)
{
    m_engine->Write(
        "adding a user", user.pin,
        [this, user](IConnection& connection) {
            const std::size_t added = connection.Query(m_statements->addUser)
                                          ->BindText(user.pin)
                                          .BindText(user.belongType)
                                          .BindText(user.passwordHash)
                                          .Run();
            if (added == 0) {
                throw WriteRefused(WriteFailure(WriteFailure::Reason::UserExists));
            }
        },
        std::move(done));
}

void RowStore::PutUser(const UserRecord& user, WriteDone done)
{
    m_engine->Write(
        "storing a user", user.pin,
        [this, user](IConnection& connection) {
            connection.Query(m_statements->putUser)
                ->BindText(user.pin)
                .BindText(user.belongType)
                .BindText(user.passwordHash)
                .Run();
            m_engine->Dialect().EndAccess(connection, user.pin);
        },
        std::move(done));
}

void RowStore::SetPassword(const std::string& pin, const std::string& passwordHash, WriteDone done)
{
    m_engine->Write(
        "changing a password", pin,
        [this, pin, passwordHash](IConnection& connection) {
            const std::size_t changed =
                connection.Query(m_statements->setPassword)->BindText(pin).BindText(passwordHash).Run();
            if (changed == 0) {
                throw WriteRefused(WriteFailure(WriteFailure::Reason::NoSuchUser));
            }
            m_engine->Dialect().EndAccess(connection, pin);
        },
        std::move(done));
}

void RowStore::AddToken(const TokenRecord& token, UnixTime forgetBefore, WriteDone done)
{
    m_engine->Write(
        "keeping an access token", token.pin,
        [this, token, forgetBefore](IConnection& connection) {
            m_engine->Dialect().AddToken(connection, token, forgetBefore);
        },
        std::move(done));
}

void RowStore::RemoveToken(const std::string& hash, WriteDone done)
{
    m_engine->Write(
        "ending an access token", {},
        [hash](IConnection& connection) {
            connection.Query("DELETE FROM access_token WHERE hash = $1")->BindBlob(hash).Run();
        },
        std::move(done));
}

void RowStore::AddLoginFailure(const std::string& pin, UnixTime at, UnixTime forgetBefore, WriteDone done)
{
    m_engine->Write(
        "noting a failed log-in", {},
        [this, pin, at, forgetBefore](IConnection& connection) {
            m_engine->Dialect().AddLoginFailure(connection, pin, at, forgetBefore);
        },
        std::move(done));
}

void RowStore::EditConfiguration(const std::string& pin, const std::string& author, ConfigurationEdit edit,
                                 WriteDone done)
{
    m_engine->Write(
        "storing a configuration", pin,
        [this, pin, author, edit = std::move(edit)](IConnection& connection) {
            const StoredConfiguration stored = NewestRevision(connection, *m_statements, pin);
            IDialect::Revision next;
            next.pin = pin;
            next.number = stored.revision + 1;
            next.author = author;
            next.document = EditedDocument(edit, stored.configuration);
            next.writtenAt = m_clock();
            m_engine->Dialect().AddRevision(connection, next, next.number - KeptRevisions);
        },
        std::move(done));
}

void RowStore::ReplaceApps(const std::vector<AppRecord>& apps, WriteDone done)
{
    m_engine->Write(
        "replacing the apps", {},
        [this, apps](IConnection& connection) {
            m_engine->Dialect().ClearApps(connection);
            std::int64_t position = 0;
            for (const AppRecord& app : apps) {
                connection
                    .Query("INSERT INTO app (position, name, service_code, icon_url, address, availability) "
                           "VALUES ($1, $2, $3, $4, $5, $6)")
                    ->BindInteger(position++)
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

void RowStore::SetSwitch(const FunctionSwitch& functionSwitch, WriteDone done)
{
    m_engine->Write(
        "setting a function switch", {},
        [functionSwitch](IConnection& connection) {
            connection
                .Query(
                    "INSERT INTO function_switch (number, valid, display) VALUES ($1, $2, $3) "
                    "ON CONFLICT (number) DO UPDATE SET valid = excluded.valid, display = excluded.display")
                ->BindInteger(functionSwitch.number)
                .BindBoolean(functionSwitch.valid)
                .BindBoolean(functionSwitch.display)
                .Run();
        },
        std::move(done));
}

void RowStore::SetAppKey(const std::string& appKey, const std::string& secret, WriteDone done)
{
    m_engine->Write(
        "storing an app key", {},
        [appKey, secret](IConnection& connection) {
            connection
                .Query("INSERT INTO app_key (app_key, secret) VALUES ($1, $2) "
                       "ON CONFLICT (app_key) DO UPDATE SET secret = excluded.secret")
                ->BindText(appKey)
                .BindText(secret)
                .Run();
        },
        std::move(done));
}

} // namespace TLGateway

#pragma once

#include "store/IStore.h"
#include "store/postgres/PostgresPool.h"
#include "store/postgres/PostgresTarget.h"
#include "store/postgres/PostgresWriter.h"

#include <memory>
#include <string>

namespace spdlog {
class logger;
}

namespace TLGateway {

// The store on a PostgreSQL server, which several gateways may use at once: one writer, a bounded number of
// connections to read with. When the server is gone reads throw and writes are refused (5002); when it is
// back the store goes on by itself.
class PostgresStore final : public IStore
{
public:
    struct Options
    {
        std::string url; // as PostgresTarget takes it
        std::size_t readers = 8;
        std::size_t queueLimit = 1024; // writes that may wait
        PostgresConnection::Limits limits;
        std::chrono::milliseconds doubtAtClose{10000}; // see PostgresWriter
        bool mustExist = false;                        // do not fill an empty database
        Clock clock = &SystemTime;
    };

    // Opens the database and makes or updates the gateway's schema in it. Throws std::invalid_argument for
    // the URL, and StoreError when the server cannot be reached, the database belongs to another program or a
    // newer gateway, or cannot keep every text.
    PostgresStore(Options options, std::shared_ptr<spdlog::logger> logger);
    ~PostgresStore() override;

    void Close() override;

    [[nodiscard]] std::optional<UserRecord> FindUser(const std::string& pin) override;
    [[nodiscard]] std::vector<UserRecord> ListUsers() override;
    [[nodiscard]] std::optional<TokenRecord> FindToken(const std::string& hash) override;
    [[nodiscard]] std::size_t CountLoginFailures(const std::string& pin, UnixTime since) override;
    [[nodiscard]] std::optional<UnixTime> FindLoginFailure(const std::string& pin, std::size_t nth) override;
    [[nodiscard]] StoredConfiguration FindConfiguration(const std::string& pin) override;
    [[nodiscard]] std::vector<StoredConfiguration> ListRevisions(const std::string& pin) override;
    [[nodiscard]] std::vector<AppRecord> ListApps() override;
    [[nodiscard]] std::vector<FunctionSwitch> ListSwitches() override;
    [[nodiscard]] std::map<std::string, std::string, std::less<>> ListAppKeys() override;

    void AddUser(const UserRecord& user, WriteDone done) override;
    void PutUser(const UserRecord& user, WriteDone done) override;
    void SetPassword(const std::string& pin, const std::string& passwordHash, WriteDone done) override;
    void AddToken(const TokenRecord& token, UnixTime forgetBefore, WriteDone done) override;
    void RemoveToken(const std::string& hash, WriteDone done) override;
    void AddLoginFailure(const std::string& pin, UnixTime at, UnixTime forgetBefore, WriteDone done) override;
    void EditConfiguration(const std::string& pin, const std::string& author, ConfigurationEdit edit,
                           WriteDone done) override;
    void ReplaceApps(const std::vector<AppRecord>& apps, WriteDone done) override;
    void SetSwitch(const FunctionSwitch& functionSwitch, WriteDone done) override;
    void SetAppKey(const std::string& appKey, const std::string& secret, WriteDone done) override;

private:
    void Open();
    template <typename Read>
    auto WithReader(const char* what, Read read);

    const Options m_options;
    const PostgresTarget m_target;
    const std::shared_ptr<spdlog::logger> m_logger;
    PostgresPool m_readers;
    std::unique_ptr<PostgresWriter> m_writer;
};

} // namespace TLGateway

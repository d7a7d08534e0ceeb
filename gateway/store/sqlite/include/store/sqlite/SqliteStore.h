#pragma once

#include "store/IStore.h"
#include "store/sqlite/SqliteConnection.h"
#include "store/sqlite/SqliteWriter.h"

#include <chrono>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace spdlog {
class logger;
}

namespace TLGateway {

// The embedded store: one file in WAL mode, one writer, a read-only connection per reading thread.
class SqliteStore final : public IStore
{
public:
    struct Options
    {
        std::string file; // UTF-8
        std::chrono::milliseconds busyTimeout{5000};
        std::size_t queueLimit = 1024; // writes that may wait
        std::int64_t maxPages = 0;     // the file grows no further [pages]; 0: no such limit
        bool mustExist = false;        // do not make the file
        bool checkIntegrity = false;   // look through the whole file before it is touched
        Clock clock = &SystemTime;
    };

    // Opens or makes the file. Throws StoreError when that fails, when the file is damaged or belongs to
    // another program; such a file is left as it is.
    SqliteStore(Options options, std::shared_ptr<spdlog::logger> logger);
    // Finishes the waiting writes and moves the write-ahead log into the file.
    ~SqliteStore() override;

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
    template <typename Read>
    auto WithReader(const char* what, Read read);
    [[nodiscard]] std::unique_ptr<SqliteConnection> TakeReader();
    void ReturnReader(std::unique_ptr<SqliteConnection> reader);

    const Options m_options;
    const std::shared_ptr<spdlog::logger> m_logger;
    std::mutex m_readersMutex;
    std::vector<std::unique_ptr<SqliteConnection>> m_readers; // those that nobody uses just now
    std::unique_ptr<SqliteWriter> m_writer;
};

} // namespace TLGateway

#pragma once

#include "store/IStore.h"
#include "store/rows/IEngine.h"

#include <memory>
#include <string>

namespace TLGateway {

struct Statements;

// The store as rows of an SQL database: the statements, the mapping of rows to records, and what belongs in
// one transaction. An engine does the rest. Besides the operations of IStore it has three members.
class RowStore : public IStore
{
public:
    // The clock says when a revision was written.
    RowStore(std::unique_ptr<IEngine> engine, Clock clock);
    ~RowStore() override;

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
    const Clock m_clock;
    const std::unique_ptr<const Statements> m_statements;
    const std::unique_ptr<IEngine> m_engine;
};

} // namespace TLGateway

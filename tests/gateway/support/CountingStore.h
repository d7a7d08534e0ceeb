#pragma once

#include "store/IStore.h"

#include <atomic>

namespace TLGateway {

// Passes everything on and counts it.
class CountingStore final : public IStore
{
public:
    explicit CountingStore(IStore& store) : m_store(store) {}

    std::atomic<int> reads{0};
    std::atomic<int> writes{0};

    void Close() override { m_store.Close(); }

    std::optional<UserRecord> FindUser(const std::string& pin) override { return Read().FindUser(pin); }
    std::vector<UserRecord> ListUsers() override { return Read().ListUsers(); }
    std::optional<TokenRecord> FindToken(const std::string& hash) override { return Read().FindToken(hash); }
    std::size_t CountLoginFailures(const std::string& pin, UnixTime since) override
    {
        return Read().CountLoginFailures(pin, since);
    }
    std::optional<UnixTime> FindLoginFailure(const std::string& pin, std::size_t nth) override
    {
        return Read().FindLoginFailure(pin, nth);
    }
    StoredConfiguration FindConfiguration(const std::string& pin) override
    {
        return Read().FindConfiguration(pin);
    }
    std::vector<StoredConfiguration> ListRevisions(const std::string& pin) override
    {
        return Read().ListRevisions(pin);
    }
    std::vector<AppRecord> ListApps() override { return Read().ListApps(); }
    std::vector<FunctionSwitch> ListSwitches() override { return Read().ListSwitches(); }
    std::map<std::string, std::string, std::less<>> ListAppKeys() override { return Read().ListAppKeys(); }

    void AddUser(const UserRecord& user, WriteDone done) override { Write().AddUser(user, std::move(done)); }
    void PutUser(const UserRecord& user, WriteDone done) override { Write().PutUser(user, std::move(done)); }
    void SetPassword(const std::string& pin, const std::string& hash, WriteDone done) override
    {
        Write().SetPassword(pin, hash, std::move(done));
    }
    void AddToken(const TokenRecord& token, UnixTime forgetBefore, WriteDone done) override
    {
        Write().AddToken(token, forgetBefore, std::move(done));
    }
    void RemoveToken(const std::string& hash, WriteDone done) override
    {
        Write().RemoveToken(hash, std::move(done));
    }
    void AddLoginFailure(const std::string& pin, UnixTime at, UnixTime forgetBefore, WriteDone done) override
    {
        Write().AddLoginFailure(pin, at, forgetBefore, std::move(done));
    }
    void EditConfiguration(const std::string& pin, const std::string& author, ConfigurationEdit edit,
                           WriteDone done) override
    {
        Write().EditConfiguration(pin, author, std::move(edit), std::move(done));
    }
    void ReplaceApps(const std::vector<AppRecord>& apps, WriteDone done) override
    {
        Write().ReplaceApps(apps, std::move(done));
    }
    void SetSwitch(const FunctionSwitch& functionSwitch, WriteDone done) override
    {
        Write().SetSwitch(functionSwitch, std::move(done));
    }
    void SetAppKey(const std::string& appKey, const std::string& secret, WriteDone done) override
    {
        Write().SetAppKey(appKey, secret, std::move(done));
    }

private:
    IStore& Read()
    {
        ++reads;
        return m_store;
    }
    IStore& Write()
    {
        ++writes;
        return m_store;
    }

    IStore& m_store;
};

} // namespace TLGateway

#pragma once

#include "base/Clock.h"
#include "records/AppRecord.h"
#include "records/AutoRunConfiguration.h"
#include "records/FunctionSwitch.h"
#include "records/StoredConfiguration.h"
#include "records/TokenRecord.h"
#include "records/UserRecord.h"
#include "store/WriteFailure.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace TLGateway {

// Where the gateway keeps its data.
//
// Reads return what is stored at that moment, on the calling thread, and throw StoreError. Any thread.
//
// The store queues writes and does them in the order of the calls. It calls `done` exactly once, on a thread
// of its own or on the caller's, with nothing when the write is on disk, or with the reason why it is not.
// Nothing of a failed write is stored, except perhaps after OutcomeUnknown. `done` must not throw and must
// not wait for another write.
//
// Other gateways may use the same database at the same time.
class IStore
{
public:
    using WriteDone = std::function<void(const std::optional<WriteFailure>& failure)>;
    // Makes the new configuration from the stored one, within the write. May be called more than once for
    // one write, so it must have no effect of its own. Throws InvalidInput when the new configuration would
    // exceed a limit; everything then stays as it is.
    using ConfigurationEdit = std::function<AutoRunConfiguration(const AutoRunConfiguration& stored)>;

    IStore() = default;
    IStore(const IStore&) = delete;
    IStore& operator=(const IStore&) = delete;
    virtual ~IStore() = default;

    // Finishes the waiting writes; later ones fail (Closing). The destructor of every store does the same.
    virtual void Close() = 0;

    [[nodiscard]] virtual std::optional<UserRecord> FindUser(const std::string& pin) = 0;
    [[nodiscard]] virtual std::vector<UserRecord> ListUsers() = 0;
    [[nodiscard]] virtual std::optional<TokenRecord> FindToken(const std::string& hash) = 0;
    // How often the pin failed to log in after `since`.
    [[nodiscard]] virtual std::size_t CountLoginFailures(const std::string& pin, UnixTime since) = 0;
    // The time of the pin's nth last failed log-in (1: the last), or nothing.
    [[nodiscard]] virtual std::optional<UnixTime> FindLoginFailure(const std::string& pin,
                                                                   std::size_t nth) = 0;
    // The newest revision; revision 0 and three empty lists when there is none.
    [[nodiscard]] virtual StoredConfiguration FindConfiguration(const std::string& pin) = 0;
    // The revisions kept, newest first.
    [[nodiscard]] virtual std::vector<StoredConfiguration> ListRevisions(const std::string& pin) = 0;
    [[nodiscard]] virtual std::vector<AppRecord> ListApps() = 0;
    [[nodiscard]] virtual std::vector<FunctionSwitch> ListSwitches() = 0;
    // Secrets by app key.
    [[nodiscard]] virtual std::map<std::string, std::string, std::less<>> ListAppKeys() = 0;

    // Fails when there is a user with this pin (UserExists).
    virtual void AddUser(const UserRecord& user, WriteDone done) = 0;
    // Adds the user or replaces the one with this pin, whose access tokens end.
    virtual void PutUser(const UserRecord& user, WriteDone done) = 0;
    // Also ends all access tokens of the user. Fails when there is no such user (NoSuchUser).
    virtual void SetPassword(const std::string& pin, const std::string& passwordHash, WriteDone done) = 0;
    // Keeps the token and forgets the pin's failed log-ins. Drops tokens that expired before `forgetBefore`.
    virtual void AddToken(const TokenRecord& token, UnixTime forgetBefore, WriteDone done) = 0;
    virtual void RemoveToken(const std::string& hash, WriteDone done) = 0;
    // Keeps the failure and drops failures of any pin from before `forgetBefore`.
    virtual void AddLoginFailure(const std::string& pin, UnixTime at, UnixTime forgetBefore,
                                 WriteDone done) = 0;
    // Stores what the edit makes as the next revision and drops revisions beyond the number kept.
    virtual void EditConfiguration(const std::string& pin, const std::string& author, ConfigurationEdit edit,
                                   WriteDone done) = 0;
    virtual void ReplaceApps(const std::vector<AppRecord>& apps, WriteDone done) = 0;
    virtual void SetSwitch(const FunctionSwitch& functionSwitch, WriteDone done) = 0;
    virtual void SetAppKey(const std::string& appKey, const std::string& secret, WriteDone done) = 0;
};

} // namespace TLGateway

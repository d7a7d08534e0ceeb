#pragma once

#include "base/WorkerPool.h"
#include "methods/IMethod.h"
#include "methods/PasswordHasher.h"
#include "store/IStore.h"

#include <string>

namespace TLGateway {

// dsm.tl.pc.user.login: checks the password and hands out an access token. Passwords are hashed on the pool
// that is passed in, whose size and queue bound the memory that log-ins take.
class LoginMethod final : public IMethod
{
public:
    // A pin with this many failed log-ins within the span is refused until the span is over.
    static constexpr std::size_t MaxFailures = 10;
    static constexpr UnixTime FailureSpan = 900;           // [s]
    static constexpr std::size_t MaxPasswordLength = 1024; // [code points]

    // Token lifetime in seconds. All three references must outlive the method.
    LoginMethod(IStore& store, const PasswordHasher& hasher, WorkerPool& hashers, UnixTime tokenLifetime);

    [[nodiscard]] std::string_view Name() const noexcept override { return "dsm.tl.pc.user.login"; }
    [[nodiscard]] bool NeedsToken() const noexcept override { return false; }
    void Execute(const MethodCallPtr& call) override;

private:
    struct Attempt
    {
        std::string pin;
        std::string password;
        std::string deviceId;
    };

    [[nodiscard]] static Attempt ReadAttempt(const boost::json::value& business);
    void Check(const MethodCallPtr& call, const Attempt& attempt);
    void RefuseLockedPin(const std::string& pin, UnixTime now);
    void Reject(const MethodCallPtr& call, const std::string& pin);
    void Admit(const MethodCallPtr& call, const UserRecord& user, const std::string& deviceId);

    IStore& m_store;
    const PasswordHasher& m_hasher;
    WorkerPool& m_hashers;
    const UnixTime m_tokenLifetime;
};

} // namespace TLGateway

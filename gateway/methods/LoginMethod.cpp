#include "methods/LoginMethod.h"

#include "base/Hashing.h"
#include "base/Random.h"
#include "base/Text.h"
#include "base/TimeStamp.h"
#include "envelope/Refused.h"
#include "methods/Caller.h"
#include "methods/ToRefusal.h"
#include "json/JsonObjectReader.h"

#include <boost/json/object.hpp>

#include <utility>

namespace TLGateway {

namespace {

constexpr std::size_t TokenSize = 32;
// An expired token is kept this long, so that its owner is told that it has expired [s].
constexpr UnixTime ExpiredTokenKept = UnixTime{30} * 24 * 60 * 60;

void CheckLength(const std::string& text, std::size_t limit, const char* path)
{
    if (CountCodePoints(text) > limit) {
        throw Refused(ErrorCode::LimitExceeded, std::string(path) + ": longer than the limit of " +
                                                    std::to_string(limit) + " characters");
    }
}

} // namespace

LoginMethod::LoginMethod(IStore& store, const PasswordHasher& hasher, WorkerPool& hashers,
                         UnixTime tokenLifetime)
    : m_store(store), m_hasher(hasher), m_hashers(hashers), m_tokenLifetime(tokenLifetime)
{}

void LoginMethod::Execute(const MethodCallPtr& call)
{
    Attempt attempt = ReadAttempt(call->Business());
    call->SetPin(attempt.pin);
    CheckLength(attempt.pin, MaxCallerTextLength, "$.param.pin");
    CheckLength(attempt.deviceId, MaxCallerTextLength, "$.param.deviceId");
    CheckLength(attempt.password, MaxPasswordLength, "$.param.password");

    const bool taken = m_hashers.TryPost(
        [this, call, attempt = std::move(attempt)] { call->Run([&] { Check(call, attempt); }); });
    if (!taken) {
        throw Refused(ErrorCode::Busy, "too many log-ins are waiting; try again");
    }
}

LoginMethod::Attempt LoginMethod::ReadAttempt(const boost::json::value& business)
{
    const JsonObjectReader param = JsonObjectReader(business, "$").Object("param");
    Attempt attempt;
    attempt.pin = param.String("pin");
    attempt.password = param.String("password");
    attempt.deviceId = param.String("deviceId");
    static_cast<void>(param.String("platform"));
    return attempt;
}

void LoginMethod::Check(const MethodCallPtr& call, const Attempt& attempt)
{
    RefuseLockedPin(attempt.pin, call->Now());
    const std::optional<UserRecord> user = m_store.FindUser(attempt.pin);
    const bool isRight = m_hasher.Verify(attempt.password, user ? user->passwordHash : m_hasher.Decoy());
    if (user && isRight) {
        Admit(call, *user, attempt.deviceId);
    } else {
        Reject(call, attempt.pin);
    }
}

void LoginMethod::RefuseLockedPin(const std::string& pin, UnixTime now)
{
    if (m_store.CountLoginFailures(pin, now - FailureSpan) < MaxFailures) {
        return;
    }
    const UnixTime oldest = m_store.FindLoginFailure(pin, MaxFailures).value_or(now);
    throw Refused(ErrorCode::LoginLocked, "too many failed log-ins for this pin; try again at " +
                                              FormatTimeStamp(oldest + FailureSpan) + " UTC");
}

// The answer waits until the failure is on disk: otherwise a full disk would allow any number of guesses.
void LoginMethod::Reject(const MethodCallPtr& call, const std::string& pin)
{
    m_store.AddLoginFailure(
        pin, call->Now(), call->Now() - FailureSpan, [call](const std::optional<WriteFailure>& failure) {
            call->Refuse(failure ? ToRefusal(*failure)
                                 : Refusal{ErrorCode::WrongPassword, "pin or password is wrong"});
        });
}

void LoginMethod::Admit(const MethodCallPtr& call, const UserRecord& user, const std::string& deviceId)
{
    const std::string accessToken = ToBase64Url(RandomBytes(TokenSize));
    const UnixTime expiresAt = call->Now() + m_tokenLifetime;
    boost::json::object answer;
    answer["accessToken"] = accessToken;
    answer["belongType"] = user.belongType;
    answer["expiresAt"] = FormatTimeStamp(expiresAt);
    answer["pin"] = user.pin;
    m_store.AddToken({Sha256(accessToken), user.pin, user.belongType, deviceId, expiresAt},
                     call->Now() - ExpiredTokenKept,
                     [call, answer = std::move(answer)](const std::optional<WriteFailure>& failure) {
                         call->Finish(failure, answer);
                     });
}

} // namespace TLGateway

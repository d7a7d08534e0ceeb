#include "methods/LoginMethod.h"

#include "base/TimeStamp.h"
#include "support/TestGateway.h"

#include <boost/json/value_to.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <memory>
#include <string>

namespace TLGateway {

using testing::HasSubstr;

TEST(LoginMethodTest, GivesTokenBelongTypeAndExpiry)
{
    TestGateway gateway;
    const auto reply = gateway.Login("bert", "pw");
    ASSERT_EQ(reply.code, 0) << reply.message;
    EXPECT_EQ(reply.data.as_object().size(), 4U);
    EXPECT_EQ(reply.data.at("belongType"), "supplier");
    EXPECT_EQ(reply.data.at("pin"), "bert");
    EXPECT_EQ(boost::json::value_to<std::string>(reply.data.at("expiresAt")),
              FormatTimeStamp(gateway.Now() + 3600));
    EXPECT_EQ(reply.data.at("accessToken").as_string().size(), 43U);
}

TEST(LoginMethodTest, TwoLoginsGiveTwoTokens)
{
    TestGateway gateway;
    EXPECT_NE(gateway.TokenOf("anna"), gateway.TokenOf("anna"));
}

TEST(LoginMethodTest, UnknownPinAndWrongPasswordHaveOneText)
{
    TestGateway gateway;
    const auto wrong = gateway.Login("anna", "nope");
    const auto unknown = gateway.Login("nobody", "pw");
    EXPECT_EQ(wrong.code, 2001);
    EXPECT_EQ(wrong.httpStatus, 401);
    EXPECT_EQ(unknown.code, 2001);
    EXPECT_EQ(wrong.message, unknown.message);
    EXPECT_THAT(gateway.Log(), HasSubstr("pin=\"nobody\" code=2001"));
}

TEST(LoginMethodTest, MissingMemberAndWrongType)
{
    TestGateway gateway;
    const auto send = [&](const char* business) {
        return gateway.Send(gateway.Envelope("dsm.tl.pc.user.login", business, "")).message;
    };
    EXPECT_EQ(send(R"({"param":{"pin":"anna","deviceId":"d","platform":"pc-win"}})"),
              "$.param.password: wanted string, found nothing");
    EXPECT_EQ(send(R"({"param":{"pin":"anna","password":7,"deviceId":"d","platform":"pc-win"}})"),
              "$.param.password: wanted string, found number");
    EXPECT_EQ(send(R"({})"), "$.param: wanted object, found nothing");
}

TEST(LoginMethodTest, TextsBeyondTheirLimitAreRefusedBeforeAnyHashing)
{
    TestGateway gateway;
    EXPECT_EQ(gateway.Login(std::string(129, 'x'), "pw").code, 1010);
    EXPECT_EQ(gateway.Login("anna", std::string(1025, 'x')).code, 1010);
    EXPECT_EQ(gateway.Login("anna", "pw", std::string(129, 'x')).code, 1010);
    EXPECT_EQ(gateway.Counts().reads, 0);
}

TEST(LoginMethodTest, LockedAfterTenFailuresUntilTheFirstIsFifteenMinutesOld)
{
    TestGateway gateway;
    const UnixTime first = gateway.Now();
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(gateway.Login("anna", "nope").code, 2001) << i;
        gateway.Advance(10);
    }
    const auto locked = gateway.Login("anna", "pw");
    EXPECT_EQ(locked.code, 2006) << "even with the right password";
    EXPECT_EQ(locked.httpStatus, 429);
    EXPECT_THAT(locked.message, HasSubstr(FormatTimeStamp(first + 900)));

    gateway.Advance(first + 899 - gateway.Now());
    EXPECT_EQ(gateway.Login("anna", "pw").code, 2006);
    gateway.Advance(1);
    EXPECT_EQ(gateway.Login("anna", "pw").code, 0);
}

TEST(LoginMethodTest, LockedPinLeavesOthersAlone)
{
    TestGateway gateway;
    for (int i = 0; i < 10; ++i) {
        static_cast<void>(gateway.Login("anna", "nope"));
    }
    EXPECT_EQ(gateway.Login("anna", "pw").code, 2006);
    EXPECT_EQ(gateway.Login("bert", "pw").code, 0);
}

TEST(LoginMethodTest, UnknownPinIsLockedLikeAKnownOne)
{
    TestGateway gateway;
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(gateway.Login("nobody", "pw").code, 2001);
    }
    EXPECT_EQ(gateway.Login("nobody", "pw").code, 2006);
}

TEST(LoginMethodTest, SuccessForgetsTheFailuresBefore)
{
    TestGateway gateway;
    for (int i = 0; i < 9; ++i) {
        static_cast<void>(gateway.Login("anna", "nope"));
    }
    EXPECT_EQ(gateway.Login("anna", "pw").code, 0);
    EXPECT_EQ(gateway.Login("anna", "nope").code, 2001);
    EXPECT_EQ(gateway.Login("anna", "pw").code, 0);
}

TEST(LoginMethodTest, RefusedAttemptsOfALockedPinDoNotProlongTheLock)
{
    TestGateway gateway;
    for (int i = 0; i < 10; ++i) {
        static_cast<void>(gateway.Login("anna", "nope"));
    }
    gateway.Advance(600);
    EXPECT_EQ(gateway.Login("anna", "nope").code, 2006);
    gateway.Advance(300);
    EXPECT_EQ(gateway.Login("anna", "pw").code, 0);
}

TEST(LoginMethodTest, FullQueueIsBusy)
{
    TestGateway gateway({}, 0);
    const auto reply = gateway.Login("anna", "pw");
    EXPECT_EQ(reply.code, 5001);
    EXPECT_EQ(reply.httpStatus, 503);
}

// In processor time, so that other programs on the machine do not matter.
TEST(LoginMethodTest, UnknownPinCostsAHashLikeAWrongPassword)
{
    TemporaryFolder folder;
    const LogCapture log;
    SqliteStore store({folder.File("a.db")}, log.Logger());
    const PasswordHasher hasher({4, 16384, 1});
    const std::clock_t begin = std::clock();
    EXPECT_FALSE(hasher.Verify("x", hasher.Decoy()));
    const std::clock_t oneHash = std::clock() - begin;

    WorkerPool hashers(1, 1);
    LoginMethod login(store, hasher, hashers, 60);
    int code = 0;
    const auto call = std::make_shared<MethodCall>(
        "r", TestGateway::Start,
        [&](ErrorCode answer, const std::string&) { code = static_cast<int>(answer); }, log.Logger());
    call->SetBusiness({{"param", {{"deviceId", "d"}, {"password", "x"}, {"pin", "no"}, {"platform", "p"}}}});
    const std::clock_t beginLogin = std::clock();
    login.Execute(call);
    hashers.Close();
    store.Close();
    EXPECT_EQ(code, 2001);
    EXPECT_GT(std::clock() - beginLogin, oneHash / 2);
}

} // namespace TLGateway

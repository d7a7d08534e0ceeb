#include "support/TestGateway.h"

#include "support/Await.h"
#include "support/SampleConfiguration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace TLGateway {

using testing::HasSubstr;

class AccessTokenTest : public testing::Test
{
protected:
    AccessTokenTest()
    {
        gateway.Import("anna", SampleConfiguration());
        token = gateway.TokenOf("anna");
    }

    TestGateway::Reply GetAs(const std::string& caller)
    {
        return gateway.Send(gateway.Envelope("dsm.tl.pc.auto.run.get", "{\"param\":" + caller + "}", token));
    }

    void ExpectRefused(const TestGateway::Reply& reply, int code, int httpStatus)
    {
        EXPECT_EQ(reply.code, code) << reply.message;
        EXPECT_EQ(reply.httpStatus, httpStatus);
        EXPECT_TRUE(reply.data.is_null());
        EXPECT_THAT(gateway.Log(), HasSubstr("refused request=" + reply.requestId));
    }

    TestGateway gateway;
    std::string token;
};

TEST_F(AccessTokenTest, OwnerIsServed)
{
    EXPECT_EQ(GetAs(TestGateway::Caller("anna")).code, 0);
}

TEST_F(AccessTokenTest, MissingTokenIsRefused)
{
    ExpectRefused(gateway.Get("anna", ""), 2002, 401);
}

TEST_F(AccessTokenTest, UnknownTokenIsRefused)
{
    ExpectRefused(gateway.Get("anna", token + "x"), 2002, 401);
    ExpectRefused(gateway.Get("anna", std::string(43, 'A')), 2002, 401);
}

TEST_F(AccessTokenTest, ExpiredTokenIsRefusedFromItsLastSecondOn)
{
    gateway.Advance(3599);
    EXPECT_EQ(gateway.Get("anna", token).code, 0);
    gateway.Advance(1);
    const auto reply = gateway.Get("anna", token);
    ExpectRefused(reply, 2003, 401);
    EXPECT_THAT(gateway.Log(), HasSubstr("pin=\"anna\" code=2003"));
}

TEST_F(AccessTokenTest, TokenOfAnotherDeviceIsRefused)
{
    ExpectRefused(GetAs(TestGateway::Caller("anna", "merchant", "device-2")), 2004, 403);
    EXPECT_THAT(gateway.Log(), HasSubstr("pin=\"anna\" code=2004"));
}

TEST_F(AccessTokenTest, PinOfAnotherUserIsRefused)
{
    ExpectRefused(GetAs(TestGateway::Caller("bert")), 2005, 403);
    EXPECT_THAT(gateway.Log(), HasSubstr("pin=\"anna\" code=2005"));
}

TEST_F(AccessTokenTest, OtherBelongTypeIsRefused)
{
    ExpectRefused(GetAs(TestGateway::Caller("anna", "supplier")), 2005, 403);
}

TEST_F(AccessTokenTest, WriteInTheNameOfAnotherUserChangesNobody)
{
    gateway.Import("bert", SampleConfiguration());
    ExpectRefused(gateway.Set("bert", token, AutoRunConfiguration()), 2005, 403);
    EXPECT_EQ(gateway.Store().FindConfiguration("bert").revision, 1);
    EXPECT_EQ(gateway.Store().FindConfiguration("anna").revision, 1);
}

TEST_F(AccessTokenTest, LogoutEndsTheTokenAndNoOther)
{
    const std::string other = gateway.TokenOf("anna");
    const auto reply =
        gateway.Send(gateway.Envelope("dsm.tl.pc.user.logout", TestGateway::Param("anna"), token));
    EXPECT_EQ(reply.code, 0);
    EXPECT_EQ(reply.data, boost::json::value(true));
    ExpectRefused(gateway.Get("anna", token), 2002, 401);
    EXPECT_EQ(gateway.Get("anna", other).code, 0);
}

TEST_F(AccessTokenTest, LogoutOfAnotherDeviceDoesNotEndTheToken)
{
    const std::string business = "{\"param\":" + TestGateway::Caller("anna", "merchant", "device-2") + "}";
    EXPECT_EQ(gateway.Send(gateway.Envelope("dsm.tl.pc.user.logout", business, token)).code, 2004);
    EXPECT_EQ(gateway.Get("anna", token).code, 0);
}

TEST_F(AccessTokenTest, NewPasswordEndsTheTokensOfItsUserOnly)
{
    const std::string berts = gateway.TokenOf("bert");
    ASSERT_FALSE(
        Await([&](IStore::WriteDone done) { gateway.Store().SetPassword("anna", "hash", std::move(done)); }));
    EXPECT_EQ(gateway.Get("anna", token).code, 2002);
    EXPECT_EQ(
        gateway
            .Send(gateway.Envelope("dsm.tl.pc.auto.run.get",
                                   "{\"param\":" + TestGateway::Caller("bert", "supplier") + "}", berts))
            .code,
        0);
}

TEST_F(AccessTokenTest, StoreHoldsTheTokenNowhereInClear)
{
    EXPECT_EQ(token.size(), 43U);
    gateway.Store().Close();
    EXPECT_EQ(ReadBytes(gateway.DatabaseFile()).find(token), std::string::npos);
}

} // namespace TLGateway

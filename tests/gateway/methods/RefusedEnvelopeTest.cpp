#include "support/TestGateway.h"

#include "base/TimeStamp.h"
#include "envelope/Signing.h"
#include "support/FormEncode.h"
#include "support/SampleConfiguration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace TLGateway {

using testing::HasSubstr;
using testing::Not;

// A write that would succeed, and the ways to spoil its envelope. Nothing of them may reach the store.
class RefusedEnvelopeTest : public testing::Test
{
protected:
    RefusedEnvelopeTest()
    {
        gateway.Import("anna", SampleConfiguration());
        token = gateway.TokenOf("anna");
        AutoRunConfiguration changed = SampleConfiguration();
        changed.customItems[0].name = "Changed";
        parameters =
            gateway.Envelope("dsm.tl.pc.auto.run.set", TestGateway::SetRequest("anna", changed), token);
        gateway.Counts().reads = 0;
        gateway.Counts().writes = 0;
    }

    void ExpectUntouched()
    {
        EXPECT_EQ(gateway.Counts().reads, 0);
        EXPECT_EQ(gateway.Counts().writes, 0);
        EXPECT_EQ(gateway.Store().FindConfiguration("anna").revision, 1);
    }

    void ExpectLogged(const TestGateway::Reply& reply)
    {
        EXPECT_THAT(gateway.Log(), HasSubstr("refused request=" + reply.requestId));
        EXPECT_THAT(gateway.Log(), HasSubstr("code=" + std::to_string(reply.code)));
    }

    TestGateway gateway;
    std::string token;
    FormParameters parameters;
};

TEST_F(RefusedEnvelopeTest, NothingSpoiltIsDone)
{
    EXPECT_EQ(gateway.Send(parameters).code, 0);
    EXPECT_EQ(gateway.Store().FindConfiguration("anna").revision, 2);
}

TEST_F(RefusedEnvelopeTest, MissingSign)
{
    const auto reply = gateway.SendUnsigned(parameters);
    EXPECT_EQ(reply.code, 1003);
    EXPECT_EQ(reply.httpStatus, 401);
    EXPECT_EQ(reply.message, "sign is missing");
    ExpectLogged(reply);
    ExpectUntouched();
}

TEST_F(RefusedEnvelopeTest, SignOfAnotherSecret)
{
    parameters["sign"] = Sign(parameters, "other secret");
    const auto reply = gateway.SendUnsigned(parameters);
    EXPECT_EQ(reply.code, 1004);
    EXPECT_EQ(reply.httpStatus, 401);
    EXPECT_EQ(reply.message, "sign is wrong");
    ExpectLogged(reply);
    ExpectUntouched();
}

TEST_F(RefusedEnvelopeTest, ParameterChangedAfterSigning)
{
    parameters["sign"] = Sign(parameters, "secret");
    parameters["tradix_param_json"] += " ";
    EXPECT_EQ(gateway.SendUnsigned(parameters).code, 1004);
    ExpectUntouched();
}

TEST_F(RefusedEnvelopeTest, UnknownAppKey)
{
    parameters["app_key"] = "somebody";
    const auto reply = gateway.Send(parameters);
    EXPECT_EQ(reply.code, 1002);
    EXPECT_EQ(reply.httpStatus, 401);
    EXPECT_EQ(reply.message, "app_key is unknown to this gateway");
    ExpectLogged(reply);
    ExpectUntouched();
}

TEST_F(RefusedEnvelopeTest, TimestampOfAnotherForm)
{
    parameters["timestamp"] = "2026-09-21T13:33:20";
    const auto reply = gateway.Send(parameters);
    EXPECT_EQ(reply.code, 1005);
    EXPECT_EQ(reply.httpStatus, 400);
    EXPECT_THAT(reply.message, HasSubstr("yyyy-MM-dd hh:mm:ss"));
    ExpectUntouched();
}

TEST_F(RefusedEnvelopeTest, TimestampMoreThanFiveMinutesOff)
{
    for (const UnixTime off : {301, -301}) {
        parameters["timestamp"] = FormatTimeStamp(gateway.Now() + off);
        const auto reply = gateway.Send(parameters);
        EXPECT_EQ(reply.code, 1006);
        EXPECT_EQ(reply.httpStatus, 401);
        EXPECT_THAT(reply.message, HasSubstr(FormatTimeStamp(gateway.Now())));
        ExpectLogged(reply);
    }
    ExpectUntouched();
}

TEST_F(RefusedEnvelopeTest, UnknownMethod)
{
    parameters["method"] = "dsm.tl.pc.auto.run.remove";
    const auto reply = gateway.Send(parameters);
    EXPECT_EQ(reply.code, 1007);
    EXPECT_EQ(reply.httpStatus, 404);
    EXPECT_THAT(reply.message, HasSubstr("dsm.tl.pc.auto.run.remove"));
    ExpectLogged(reply);
    ExpectUntouched();
}

TEST_F(RefusedEnvelopeTest, MissingParameter)
{
    parameters.erase("lang");
    const auto reply = gateway.Send(parameters);
    EXPECT_EQ(reply.code, 1001);
    EXPECT_EQ(reply.httpStatus, 400);
    EXPECT_THAT(reply.message, HasSubstr("\"lang\" is missing"));
    ExpectUntouched();
}

TEST_F(RefusedEnvelopeTest, DuplicatedParameter)
{
    parameters["sign"] = Sign(parameters, "secret");
    const auto reply = gateway.SendBody(FormEncode(parameters) + "&lang=en");
    EXPECT_EQ(reply.code, 1001);
    EXPECT_THAT(reply.message, HasSubstr("\"lang\" occurs twice"));
    ExpectUntouched();
}

TEST_F(RefusedEnvelopeTest, InvalidUtf8InTheBusinessJson)
{
    std::string& business = parameters["tradix_param_json"];
    business.insert(business.find("Changed"), "\xC3\x28");
    const auto reply = gateway.Send(parameters);
    EXPECT_EQ(reply.code, 1001);
    EXPECT_THAT(reply.message, HasSubstr("\"tradix_param_json\" is not valid UTF-8"));
    ExpectUntouched();
}

TEST_F(RefusedEnvelopeTest, EmptyBody)
{
    EXPECT_EQ(gateway.SendBody("").code, 1001);
    ExpectUntouched();
}

TEST_F(RefusedEnvelopeTest, LogHoldsNoTokenSignOrSecret)
{
    parameters["sign"] = Sign(parameters, "other secret");
    const std::string sign = parameters["sign"];
    static_cast<void>(gateway.SendUnsigned(parameters));
    static_cast<void>(gateway.Login("anna", "hunter2"));
    EXPECT_THAT(gateway.Log(), Not(HasSubstr(sign)));
    EXPECT_THAT(gateway.Log(), Not(HasSubstr(token)));
    EXPECT_THAT(gateway.Log(), Not(HasSubstr("secret")));
    EXPECT_THAT(gateway.Log(), Not(HasSubstr("hunter2")));
}

} // namespace TLGateway

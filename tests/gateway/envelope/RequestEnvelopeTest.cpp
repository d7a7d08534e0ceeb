#include "envelope/RequestEnvelope.h"

#include "base/TimeStamp.h"
#include "envelope/FormParameters.h"
#include "envelope/Signing.h"
#include "support/FormEncode.h"
#include "support/RefusalOf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace TLGateway {

using testing::HasSubstr;

class RequestEnvelopeTest : public testing::Test
{
protected:
    RequestEnvelopeTest() { keys.Replace({{"k", "secret"}}); }

    [[nodiscard]] std::string SignedBody()
    {
        parameters["sign"] = Sign(parameters, "secret");
        return FormEncode(parameters);
    }

    [[nodiscard]] RequestEnvelope Read(const std::string& body) const
    {
        return ReadEnvelope(body, keys, now);
    }

    [[nodiscard]] Refusal Refused(const std::string& body) const
    {
        return RefusalOf([&] { static_cast<void>(Read(body)); });
    }

    AppKeyRing keys;
    UnixTime now = 1790000000;
    FormParameters parameters = {{"method", "m"},
                                 {"app_key", "k"},
                                 {"access_token", ""},
                                 {"timestamp", FormatTimeStamp(now)},
                                 {"format", "json"},
                                 {"lang", "zh_CN"},
                                 {"region", "CN"},
                                 {"platform", "pc-win"},
                                 {"tradix_param_json", "{\"a\":\"订 &=%\"}"}};
};

TEST_F(RequestEnvelopeTest, GoodRequest)
{
    const RequestEnvelope envelope = Read(SignedBody());
    EXPECT_EQ(envelope.method, "m");
    EXPECT_EQ(envelope.accessToken, "");
    EXPECT_EQ(envelope.language, "zh_CN");
    EXPECT_EQ(envelope.region, "CN");
    EXPECT_EQ(envelope.platform, "pc-win");
    EXPECT_EQ(envelope.businessJson, "{\"a\":\"订 &=%\"}");
}

TEST_F(RequestEnvelopeTest, EveryMissingParameterIsNamed)
{
    for (const char* name : {"method", "app_key", "access_token", "timestamp", "format", "lang", "region",
                             "platform", "tradix_param_json"}) {
        const FormParameters all = parameters;
        parameters.erase(name);
        const Refusal refusal = Refused(SignedBody());
        EXPECT_EQ(refusal.code, ErrorCode::BadParameter);
        EXPECT_EQ(refusal.message, std::string("parameter \"") + name + "\" is missing");
        parameters = all;
    }
}

TEST_F(RequestEnvelopeTest, FormatOtherThanJson)
{
    parameters["format"] = "xml";
    EXPECT_EQ(Refused(SignedBody()).code, ErrorCode::BadParameter);
}

TEST_F(RequestEnvelopeTest, AdditionalParameterIsCoveredByTheSign)
{
    parameters["extra"] = "1";
    const std::string body = SignedBody();
    EXPECT_NO_THROW(static_cast<void>(Read(body)));
    EXPECT_EQ(Refused(body + "&more=1").code, ErrorCode::SignWrong);
}

TEST_F(RequestEnvelopeTest, UpperCaseSignIsWrong)
{
    std::string sign = Sign(parameters, "secret");
    for (char& c : sign) {
        c = c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    parameters["sign"] = sign;
    EXPECT_EQ(Refused(FormEncode(parameters)).code, ErrorCode::SignWrong);
}

TEST_F(RequestEnvelopeTest, EmptySignIsMissing)
{
    parameters["sign"] = "";
    EXPECT_EQ(Refused(FormEncode(parameters)).code, ErrorCode::SignMissing);
}

TEST_F(RequestEnvelopeTest, TimestampFiveMinutesOffIsTakenAndOneSecondMoreIsNot)
{
    for (const UnixTime off : {300, -300}) {
        parameters["timestamp"] = FormatTimeStamp(now + off);
        EXPECT_NO_THROW(static_cast<void>(Read(SignedBody()))) << off;
        parameters.erase("sign");
        parameters["timestamp"] = FormatTimeStamp(now + off + (off > 0 ? 1 : -1));
        const Refusal refusal = Refused(SignedBody());
        EXPECT_EQ(refusal.code, ErrorCode::TimestampOff);
        EXPECT_THAT(refusal.message, HasSubstr(FormatTimeStamp(now)));
        parameters.erase("sign");
    }
}

TEST_F(RequestEnvelopeTest, FarthestTimestampsDoNotOverflow)
{
    for (const char* time : {"0000-01-01 00:00:00", "9999-12-31 23:59:59"}) {
        parameters["timestamp"] = time;
        EXPECT_EQ(Refused(SignedBody()).code, ErrorCode::TimestampOff);
        parameters.erase("sign");
    }
}

TEST_F(RequestEnvelopeTest, ChecksComeInTheirOrder)
{
    // Everything is wrong; each step mends what the one before complained about.
    parameters = {{"app_key", "other"}, {"timestamp", "soon"}, {"method", "m"},    {"access_token", ""},
                  {"format", "json"},   {"lang", "en"},        {"platform", "pc"}, {"tradix_param_json", ""}};
    EXPECT_EQ(Refused(FormEncode(parameters)).code, ErrorCode::BadParameter);
    parameters["region"] = "";
    EXPECT_EQ(Refused(FormEncode(parameters)).code, ErrorCode::UnknownAppKey);
    parameters["app_key"] = "k";
    EXPECT_EQ(Refused(FormEncode(parameters)).code, ErrorCode::SignMissing);
    parameters["sign"] = "x";
    EXPECT_EQ(Refused(FormEncode(parameters)).code, ErrorCode::SignWrong);
    parameters["sign"] = Sign(parameters, "secret");
    EXPECT_EQ(Refused(FormEncode(parameters)).code, ErrorCode::TimestampForm);
}

} // namespace TLGateway

#include "http-module/IHttpResponseDsm.h"

#include "FakeRecord.h"

#include "http-module/HttpResponseBasicDsm.h"
#include "http-module/HttpResponseObjectDsm.h"
#include "http/HttpError.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>

#include <gtest/gtest.h>

namespace {

using RecordResponse = HttpResponseObjectDsm<FakeRecord>;
using BoolResponse = HttpResponseBasicDsm<bool>;

std::string Text(const QString& text)
{
    return text.toStdString();
}

void ExpectOutcome(const IHttpResponse& response, bool success, const char* code, const char* description,
                   bool retry)
{
    EXPECT_EQ(response.IsSuccess(), success);
    EXPECT_EQ(Text(response.GetErrorCode()), code);
    EXPECT_EQ(Text(response.GetErrorDesc()), description);
    EXPECT_EQ(response.ShouldRetry(), retry);
}

// Business data of any kind is fine, or none is.
class AnyResponse final : public IHttpResponseDsm
{
public:
    QSharedPointer<BusinessParseResult> ParseBusinessData(const QJsonValue& data) override
    {
        ++parses;
        last = data;
        return result;
    }

    QSharedPointer<BusinessParseResult> result = QSharedPointer<BusinessParseResult>::create(true, QString());
    QJsonValue last;
    int parses = 0;
};

} // namespace

TEST(IHttpResponseDsmTest, BeforeAnyOutcomeThereIsNone)
{
    const RecordResponse response;
    ExpectOutcome(response, false, "", "", false);
    EXPECT_EQ(Text(response.GetRequestId()), "");
    EXPECT_EQ(Text(response.GetSuccessCode()), "0");
    EXPECT_FALSE(response.IsAutoCache());
    EXPECT_FALSE(response.CanSaveToCache());
    EXPECT_FALSE(response.NeedReadFromCache());
    EXPECT_FALSE(response.IsFromCache());
    ASSERT_TRUE(response.GetEntity());
}

TEST(IHttpResponseDsmTest, ASuccessFillsTheRecord)
{
    RecordResponse response;
    const QSharedPointer<FakeRecord> record = response.GetEntity();
    response.SetData(R"({"code":"0","message":"","requestId":"r1","data":{"name":"n","count":3}})");
    ExpectOutcome(response, true, "0", "", false);
    EXPECT_EQ(Text(response.GetRequestId()), "r1");
    EXPECT_EQ(response.GetEntity(), record);
    EXPECT_EQ(Text(record->m_name), "n");
    EXPECT_EQ(record->m_count, 3);
    EXPECT_TRUE(response.CanSaveToCache());
    EXPECT_FALSE(response.NeedReadFromCache());
}

TEST(IHttpResponseDsmTest, ACodeMayBeANumber)
{
    AnyResponse response;
    response.SetData(R"({"code":0,"data":1})");
    ExpectOutcome(response, true, "0", "", false);
    response.SetData(R"({"code":5001,"message":"busy"})");
    ExpectOutcome(response, false, "5001", "busy", true);
    response.SetData(R"({"code":2001,"message":"wrong"})");
    ExpectOutcome(response, false, "2001", "wrong", false);
    response.SetData(R"({"code":0.5,"message":"odd"})");
    ExpectOutcome(response, false, "0.5", "odd", false);
    response.SetData(R"({"code":1e300,"message":"odd"})");
    EXPECT_FALSE(response.IsSuccess());
}

TEST(IHttpResponseDsmTest, ARefusalIsNotTheGatewaysFault)
{
    for (const char* const code : {"1001", "1004", "1006", "1010", "2001", "2003", "2006", "4999", "00",
                                   "-5001", "maintenance", "5001x"}) {
        SCOPED_TRACE(code);
        AnyResponse response;
        response.SetAutoCache(true);
        response.SetData(QByteArray(R"({"code":")") + code + R"(","message":"no","data":null})");
        ExpectOutcome(response, false, code, "no", false);
        EXPECT_FALSE(response.NeedReadFromCache());
        EXPECT_FALSE(response.CanSaveToCache());
        EXPECT_EQ(response.parses, 0);
    }
}

TEST(IHttpResponseDsmTest, ServerErrorsAreTheGatewaysFault)
{
    for (const char* const code : {"5000", "5001", "5002", "5003", "99999"}) {
        SCOPED_TRACE(code);
        AnyResponse response;
        response.SetData(QByteArray(R"({"code":")") + code + R"(","message":"sorry","requestId":"r2"})");
        ExpectOutcome(response, false, code, "sorry", true);
        EXPECT_TRUE(response.NeedReadFromCache());
        EXPECT_EQ(Text(response.GetRequestId()), "r2");
    }
}

TEST(IHttpResponseDsmTest, ARefusalWithoutAMessageNamesItsCode)
{
    AnyResponse response;
    response.SetData(R"({"code":"2001"})");
    ExpectOutcome(response, false, "2001", "The gateway answered with code 2001.", false);
    response.SetData(R"({"code":"2001","message":17})");
    ExpectOutcome(response, false, "2001", "The gateway answered with code 2001.", false);
}

TEST(IHttpResponseDsmTest, AnotherEnvelopeIsTheGatewaysFault)
{
    for (const char* const body :
         {"{}", "[]", "[{\"code\":\"0\"}]", "true", "\"0\"", "0", "null", R"({"code":null})",
          R"({"code":""})", R"({"code":true})", R"({"code":["0"]})", R"({"Code":"0"})"}) {
        SCOPED_TRACE(body);
        AnyResponse response;
        response.SetData(body);
        ExpectOutcome(response, false, "parse", "The gateway's reply does not have the expected form.", true);
        EXPECT_TRUE(response.NeedReadFromCache());
        EXPECT_EQ(response.parses, 0);
    }
}

TEST(IHttpResponseDsmTest, WhatIsNotJsonIsTheGatewaysFault)
{
    AnyResponse response;
    response.SetData("<html>");
    ExpectOutcome(response, false, "parse", "The gateway's reply is not JSON.", true);
    response.SetData(R"({"code":"0","data":)");
    ExpectOutcome(response, false, "parse", "The gateway's reply is not JSON.", true);
    response.SetData("");
    ExpectOutcome(response, false, "parse", "The gateway's reply is empty.", true);
    response.SetData(QByteArray(100000, '['));
    ExpectOutcome(response, false, "parse", "The gateway's reply is not JSON.", true);
    response.SetData("{\"code\":\"0\",\"message\":\"\xff\"}");
    ExpectOutcome(response, false, "parse", "The gateway's reply is not JSON.", true);
}

TEST(IHttpResponseDsmTest, DataThatCannotBeReadIsDescribedByTheParse)
{
    AnyResponse response;
    response.result =
        QSharedPointer<BusinessParseResult>::create(false, QStringLiteral("count: not a number"));
    response.SetData(R"({"code":"0","data":{}})");
    ExpectOutcome(response, false, "parse", "count: not a number", true);
    EXPECT_FALSE(response.CanSaveToCache());
    response.result = QSharedPointer<BusinessParseResult>::create(false, QString());
    response.SetData(R"({"code":"0","data":{}})");
    ExpectOutcome(response, false, "parse", "The data in the gateway's reply could not be read.", true);
    response.result.reset();
    response.SetData(R"({"code":"0","data":{}})");
    ExpectOutcome(response, false, "parse", "The data in the gateway's reply could not be read.", true);
}

TEST(IHttpResponseDsmTest, NetworkErrorsCarryTheirNumber)
{
    AnyResponse response;
    response.SetNetworkError(1, QStringLiteral("refused"));
    ExpectOutcome(response, false, "1", "refused", true);
    EXPECT_TRUE(response.NeedReadFromCache());
    response.SetNetworkError(static_cast<int>(HttpError::Timeout), QStringLiteral("late"));
    ExpectOutcome(response, false, "-1", "late", true);
    EXPECT_TRUE(response.NeedReadFromCache());
    response.SetNetworkError(static_cast<int>(HttpError::TooLarge), QStringLiteral("large"));
    ExpectOutcome(response, false, "-2", "large", true);
    response.SetNetworkError(static_cast<int>(HttpError::SwitchedOff), QStringLiteral("off"));
    ExpectOutcome(response, false, "-3", "off", false);
    EXPECT_FALSE(response.NeedReadFromCache());
    response.SetNetworkError(static_cast<int>(HttpError::InvalidAddress), QStringLiteral("where"));
    ExpectOutcome(response, false, "-4", "where", false);
    EXPECT_FALSE(response.NeedReadFromCache());
}

TEST(IHttpResponseDsmTest, AResetForgetsTheOutcomeAndKeepsTheSetting)
{
    AnyResponse response;
    response.SetAutoCache(true);
    response.SetData(R"({"code":"5001","message":"busy","requestId":"r3"})");
    response.DoReset();
    ExpectOutcome(response, false, "", "", false);
    EXPECT_EQ(Text(response.GetRequestId()), "");
    EXPECT_TRUE(response.GetCacheData().isEmpty());
    EXPECT_TRUE(response.IsAutoCache());
    response.SetAutoCache(false);
    EXPECT_FALSE(response.IsAutoCache());
}

TEST(IHttpResponseDsmTest, AKeptReplyIsReadLikeAFreshOneAndSaysSo)
{
    RecordResponse response;
    response.SetData(R"({"code":"0","requestId":"r4","data":{"name":"kept","count":4}})");
    const QByteArray kept = response.GetCacheData();
    RecordResponse later;
    later.SetData(R"({"code":"5001","message":"busy","requestId":"r5"})");
    later.SetCacheData(kept);
    ExpectOutcome(later, true, "0", "", false);
    EXPECT_TRUE(later.IsFromCache());
    EXPECT_FALSE(later.CanSaveToCache()) << "what was kept would never grow old";
    EXPECT_EQ(Text(later.GetEntity()->m_name), "kept");
    EXPECT_EQ(Text(later.GetRequestId()), "r5") << "the gateway's log knows this call under its own name";
    later.DoReset();
    EXPECT_FALSE(later.IsFromCache());
}

TEST(IHttpResponseDsmTest, AKeptReplyThatCannotBeReadLeavesTheFailureAsItWas)
{
    for (const char* const kept : {"", "{", "[]", R"({"code":"2001","message":"no"})",
                                   R"({"code":"0","data":{"count":"many"}})", R"({"code":"0","data":[]})"}) {
        SCOPED_TRACE(kept);
        RecordResponse response;
        response.SetData(R"({"code":"5001","message":"busy"})");
        response.SetCacheData(kept);
        ExpectOutcome(response, false, "5001", "busy", true);
        EXPECT_FALSE(response.IsFromCache());
    }
}

TEST(HttpResponseObjectDsmTest, NullDataIsASuccessThatLeavesTheRecordAsItIs)
{
    RecordResponse response;
    response.SetData(R"({"code":"0","data":null})");
    ExpectOutcome(response, true, "0", "", false);
    EXPECT_EQ(Text(response.GetEntity()->m_name), "");
    const auto result = response.ParseBusinessData(QJsonValue());
    EXPECT_TRUE(result->IsSuccess());
    EXPECT_EQ(Text(result->GetMessage()), "");
}

TEST(HttpResponseObjectDsmTest, DataThatIsNoObjectIsRefused)
{
    for (const QJsonValue& data : {QJsonValue(QJsonArray()), QJsonValue(true), QJsonValue(1),
                                   QJsonValue(QStringLiteral("{}")), QJsonValue(QJsonValue::Undefined)}) {
        RecordResponse response;
        const auto result = response.ParseBusinessData(data);
        EXPECT_FALSE(result->IsSuccess());
        EXPECT_EQ(Text(result->GetMessage()), "business data is not json object.");
    }
    RecordResponse response;
    response.SetData(R"({"code":"0","data":[]})");
    ExpectOutcome(response, false, "parse", "business data is not json object.", true);
}

TEST(HttpResponseObjectDsmTest, AReplyWithoutDataIsNoSilentSuccess)
{
    RecordResponse response;
    response.SetData(R"({"code":"0"})");
    ExpectOutcome(response, false, "parse", "business data is not json object.", true);
    BoolResponse basic;
    basic.SetData(R"({"code":"0"})");
    ExpectOutcome(basic, false, "parse", "Cannot parse JSON value to bool type", true);
}

TEST(HttpResponseObjectDsmTest, WithoutARecordTheParseFails)
{
    RecordResponse response;
    response.SetEntity(QSharedPointer<FakeRecord>());
    const auto result = response.ParseBusinessData(QJsonObject());
    EXPECT_FALSE(result->IsSuccess());
    EXPECT_EQ(Text(result->GetMessage()), "entity is nullptr.");
    EXPECT_EQ(Text(response.ParseBusinessData(QJsonArray())->GetMessage()),
              "business data is not json object.");
    EXPECT_TRUE(response.ParseBusinessData(QJsonValue())->IsSuccess());
}

TEST(HttpResponseObjectDsmTest, ParseErrorsAreListedLineByLine)
{
    RecordResponse response;
    const QJsonObject wrong{{QStringLiteral("name"), 1}, {QStringLiteral("count"), QStringLiteral("x")}};
    const auto result = response.ParseBusinessData(wrong);
    EXPECT_FALSE(result->IsSuccess());
    EXPECT_EQ(Text(result->GetMessage()),
              Text(response.GetEntity()->GetParseError().join(QLatin1Char('\n'))));
    EXPECT_EQ(result->GetMessage().count(QLatin1Char('\n')), 1);
}

TEST(HttpResponseObjectDsmTest, ARecordReadInPartKeepsWhatItReceived)
{
    RecordResponse response;
    response.SetData(R"({"code":"0","data":{"name":"n","count":"x"}})");
    EXPECT_FALSE(response.IsSuccess());
    EXPECT_EQ(Text(response.GetEntity()->m_name), "n");
    EXPECT_EQ(response.GetEntity()->m_count, 0);
}

TEST(HttpResponseBasicDsmTest, TakesABool)
{
    BoolResponse response;
    EXPECT_FALSE(response.GetValue());
    response.SetData(R"({"code":"0","data":true})");
    ExpectOutcome(response, true, "0", "", false);
    EXPECT_TRUE(response.GetValue());
    response.SetData(R"({"code":"0","data":false})");
    ExpectOutcome(response, true, "0", "", false);
    EXPECT_FALSE(response.GetValue());
}

TEST(HttpResponseBasicDsmTest, NullIsASuccessAndStaysFalse)
{
    BoolResponse response;
    response.SetData(R"({"code":"0","data":null})");
    ExpectOutcome(response, true, "0", "", false);
    EXPECT_FALSE(response.GetValue());
}

TEST(HttpResponseBasicDsmTest, AnythingElseIsRefused)
{
    for (const char* const data : {"\"true\"", "1", "{}", "[true]"}) {
        SCOPED_TRACE(data);
        BoolResponse response;
        response.SetData(QByteArray(R"({"code":"0","data":)") + data + "}");
        ExpectOutcome(response, false, "parse", "Cannot parse JSON value to bool type", true);
        EXPECT_FALSE(response.GetValue());
    }
}

#include "AutoRunCollectionEntity.h"
#include "GetAutoRunRequest.h"
#include "SetAutoRunRequest.h"

#include "core/TLGlobalData.h"
#include "http-module/HttpResponseBasicDsm.h"
#include "http-module/HttpResponseObjectDsm.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QMetaMethod>

#include <gtest/gtest.h>

namespace {

using ReadResponse = HttpResponseObjectDsm<AutoRunCollectionEntity>;
using WriteResponse = HttpResponseBasicDsm<bool>;

class AutoRunRequestsTest : public ::testing::Test
{
protected:
    AutoRunRequestsTest()
    {
        TLGlobalData::Instance()->SetUser(QStringLiteral("demo"), QStringLiteral("merchant"));
        TLGlobalData::Instance()->SetUUID(QStringLiteral("6f1c"));
    }
    ~AutoRunRequestsTest() override { TLGlobalData::Instance()->ClearUser(); }
};

void ExpectNothingDeclared(const QMetaObject& metaObject, const char* className)
{
    EXPECT_STREQ(metaObject.className(), className);
    EXPECT_STREQ(metaObject.superClass()->className(), "IHttpRequestDsm");
    EXPECT_EQ(metaObject.propertyCount(), metaObject.propertyOffset());
    EXPECT_EQ(metaObject.methodCount(), metaObject.methodOffset());
}

} // namespace

TEST_F(AutoRunRequestsTest, MetaObjectsHaveTheirNamesAndDeclareNothing)
{
    ExpectNothingDeclared(GetAutoRunRequest::staticMetaObject, "GetAutoRunRequest");
    ExpectNothingDeclared(SetAutoRunRequest::staticMetaObject, "SetAutoRunRequest");
}

TEST_F(AutoRunRequestsTest, ReadRequestTakesAParent)
{
    QObject parent;
    auto* request = new GetAutoRunRequest(&parent);
    EXPECT_EQ(request->parent(), &parent);
    EXPECT_EQ(GetAutoRunRequest().parent(), nullptr);
}

TEST_F(AutoRunRequestsTest, MethodNamesAreTheGateways)
{
    EXPECT_EQ(GetAutoRunRequest().GetDsmMethod(), QStringLiteral("dsm.tl.pc.auto.run.get"));
    EXPECT_EQ(SetAutoRunRequest().GetDsmMethod(), QStringLiteral("dsm.tl.pc.auto.run.set"));
}

TEST_F(AutoRunRequestsTest, ReadBusinessJsonByteForByte)
{
    EXPECT_EQ(GetAutoRunRequest().GetBusinessParam(),
              QByteArray(R"({"param":{"belongType":"merchant","deviceId":"6f1c","pin":"demo",)"
                         R"("platform":"pc-win"}})"));
}

TEST_F(AutoRunRequestsTest, ReadBusinessJsonOfNobodyHasEmptyTexts)
{
    TLGlobalData::Instance()->ClearUser();
    TLGlobalData::Instance()->SetUUID(QString());
    EXPECT_EQ(GetAutoRunRequest().GetBusinessParam(),
              QByteArray(R"({"param":{"belongType":"","deviceId":"","pin":"","platform":"pc-win"}})"));
}

TEST_F(AutoRunRequestsTest, WriteBusinessJsonByteForByte)
{
    const auto collection = QSharedPointer<AutoRunCollectionEntity>::create();
    const auto custom = AutoRunInfoEntityPtr::create();
    custom->itemId = QStringLiteral("{c}");
    custom->name = QStringLiteral("Or\"ders");
    custom->url = QStringLiteral("https://orders.example.com/?a=1&b=2");
    custom->checked = true;
    custom->activeItem = true;
    collection->customItems = {custom};
    const auto app = AutoRunInfoEntityPtr::create();
    app->itemId = QStringLiteral("{p}");
    app->url = QStringLiteral("stock");
    app->type = 1;
    collection->pluginItems = {app};
    const auto system = AutoRunInfoEntityPtr::create();
    system->itemId = QStringLiteral("s");
    system->systemItem = true;
    collection->systemItems = {system};

    SetAutoRunRequest request;
    request.SetCollection(collection);
    EXPECT_EQ(
        request.GetBusinessParam(),
        QByteArray(
            R"({"baseInfo":{"belongType":"merchant","deviceId":"6f1c","pin":"demo","platform":"pc-win"},)"
            R"("workstationSetResult":{)"
            R"("customItems":[{"activeItem":true,"checked":true,"itemId":"{c}","name":"Or\"ders",)"
            R"("systemItem":false,"type":0,"url":"https://orders.example.com/?a=1&b=2"}],)"
            R"("pluginItems":[{"activeItem":false,"checked":false,"itemId":"{p}","name":"",)"
            R"("systemItem":false,"type":1,"url":"stock"}],)"
            R"("systemItems":[{"activeItem":false,"checked":false,"itemId":"s","name":"",)"
            R"("systemItem":true,"type":0,"url":""}]}})"));
}

TEST_F(AutoRunRequestsTest, WriteWithoutAConfigurationHasBaseInfoOnly)
{
    EXPECT_EQ(SetAutoRunRequest().GetBusinessParam(),
              QByteArray(R"({"baseInfo":{"belongType":"merchant","deviceId":"6f1c","pin":"demo",)"
                         R"("platform":"pc-win"}})"));
}

TEST_F(AutoRunRequestsTest, AnotherConfigurationReleasesTheOneBefore)
{
    SetAutoRunRequest request;
    auto collection = QSharedPointer<AutoRunCollectionEntity>::create();
    const QWeakPointer<AutoRunCollectionEntity> first = collection;
    request.SetCollection(collection);
    collection = QSharedPointer<AutoRunCollectionEntity>::create();
    EXPECT_FALSE(first.isNull());
    request.SetCollection(collection);
    EXPECT_TRUE(first.isNull());
}

TEST_F(AutoRunRequestsTest, NullBusinessValueOfAReadIsASuccessWithThreeEmptyLists)
{
    ReadResponse response;
    response.SetData(R"({"code":"0","message":"","requestId":"r","data":null})");
    EXPECT_TRUE(response.IsSuccess());
    ASSERT_TRUE(response.GetEntity());
    EXPECT_TRUE(response.GetEntity()->systemItems.isEmpty());
    EXPECT_TRUE(response.GetEntity()->customItems.isEmpty());
    EXPECT_TRUE(response.GetEntity()->pluginItems.isEmpty());
    EXPECT_EQ(response.ParseBusinessData(QJsonValue(QJsonValue::Null))->GetMessage(), QString());
}

TEST_F(AutoRunRequestsTest, ArrayAsBusinessValueOfAReadIsAFailure)
{
    ReadResponse response;
    const auto result = response.ParseBusinessData(QJsonArray());
    EXPECT_FALSE(result->IsSuccess());
    EXPECT_EQ(result->GetMessage(), QStringLiteral("business data is not json object."));

    response.SetData(R"({"code":"0","message":"","requestId":"r","data":[]})");
    EXPECT_FALSE(response.IsSuccess());
    EXPECT_TRUE(response.GetErrorDesc().contains(QLatin1String("business data is not json object.")))
        << qUtf8Printable(response.GetErrorDesc());
}

TEST_F(AutoRunRequestsTest, ReadWithoutARecordToParseIntoIsAFailure)
{
    ReadResponse response;
    response.SetEntity({});
    const auto result = response.ParseBusinessData(QJsonObject());
    EXPECT_FALSE(result->IsSuccess());
    EXPECT_EQ(result->GetMessage(), QStringLiteral("entity is nullptr."));
    EXPECT_TRUE(response.ParseBusinessData(QJsonValue(QJsonValue::Null))->IsSuccess()) << "null comes first";
    EXPECT_EQ(response.ParseBusinessData(QJsonArray())->GetMessage(),
              QStringLiteral("business data is not json object."))
        << "the shape comes second";
}

TEST_F(AutoRunRequestsTest, ObjectAsBusinessValueOfAReadFillsTheRecord)
{
    ReadResponse response;
    const QSharedPointer<AutoRunCollectionEntity> entity = response.GetEntity();
    const auto result = response.ParseBusinessData(
        QJsonObject{{QStringLiteral("customItems"), QJsonArray{QJsonObject(), QJsonObject()}}});
    EXPECT_TRUE(result->IsSuccess());
    EXPECT_EQ(result->GetMessage(), QString());
    EXPECT_EQ(response.GetEntity(), entity);
    EXPECT_EQ(entity->customItems.size(), 2);
}

TEST_F(AutoRunRequestsTest, BoolAsBusinessValueOfAWriteIsStored)
{
    WriteResponse response;
    EXPECT_FALSE(response.GetValue());
    const auto result = response.ParseBusinessData(QJsonValue(true));
    EXPECT_TRUE(result->IsSuccess());
    EXPECT_EQ(result->GetMessage(), QString());
    EXPECT_TRUE(response.GetValue());
    EXPECT_TRUE(response.ParseBusinessData(QJsonValue(false))->IsSuccess());
    EXPECT_FALSE(response.GetValue());
}

TEST_F(AutoRunRequestsTest, NullBusinessValueOfAWriteIsASuccessThatStaysFalse)
{
    WriteResponse response;
    const auto result = response.ParseBusinessData(QJsonValue(QJsonValue::Null));
    EXPECT_TRUE(result->IsSuccess());
    EXPECT_EQ(result->GetMessage(), QString());
    EXPECT_FALSE(response.GetValue());
}

TEST_F(AutoRunRequestsTest, TextTrueAsBusinessValueOfAWriteIsAFailureThatStaysFalse)
{
    WriteResponse response;
    const auto result = response.ParseBusinessData(QJsonValue(QStringLiteral("true")));
    EXPECT_FALSE(result->IsSuccess());
    EXPECT_EQ(result->GetMessage(), QStringLiteral("Cannot parse JSON value to bool type"));
    EXPECT_FALSE(response.GetValue());
}

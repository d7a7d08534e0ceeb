#include "VTablePlaces.h"

#include "FakeRecord.h"

#include "http-module/HttpResponseBasicDsm.h"
#include "http-module/HttpResponseObjectDsm.h"
#include "http-module/IHttpRequestDsm.h"

#include <QtCore/QObject>

#include <gmock/gmock.h>

using ::testing::ElementsAre;

namespace {

/// The last place that is QObject's.
int PlaceOfLastOfQObject()
{
    struct Opened : QObject
    {
        static int Get() { return VTablePlaces::PlaceOf(&Opened::disconnectNotify); }
    };
    return Opened::Get();
}

// Any two requests, each with the two operations that a request contributes.
class FirstRequest final : public IHttpRequestDsm
{
public:
    QString GetDsmMethod() const override { return QStringLiteral("first"); }
    QByteArray GetBusinessParam() const override { return "first"; }
};

class SecondRequest final : public IHttpRequestDsm
{
public:
    QString GetDsmMethod() const override { return QStringLiteral("second"); }
    QByteArray GetBusinessParam() const override { return "second"; }
};

} // namespace

TEST(HttpModuleSlotsTest, ARequestsOperationsFollowThoseOfQObjectWithoutAGap)
{
    const int first = PlaceOfLastOfQObject() + 1;
    const std::vector<int> places = {
        VTablePlaces::PlaceOf(&IHttpRequestDsm::GetApiUrl),
        VTablePlaces::PlaceOf(&IHttpRequestDsm::GetHostIp),
        VTablePlaces::PlaceOf(&IHttpRequestDsm::GetApiBody),
        VTablePlaces::PlaceOf(&IHttpRequestDsm::GetMethodName),
        VTablePlaces::PlaceOf(&IHttpRequestDsm::GetLogInfo),
        VTablePlaces::PlaceOf(&IHttpRequestDsm::IsDegradeApi),
        VTablePlaces::PlaceOf(&IHttpRequestDsm::GetDegradeDescription),
        VTablePlaces::PlaceOf(&IHttpRequestDsm::DoReset),
        VTablePlaces::PlaceOf(&IHttpRequestDsm::GetDsmMethod),
        VTablePlaces::PlaceOf(&IHttpRequestDsm::GetBusinessParam),
        VTablePlaces::PlaceOf(&IHttpRequestDsm::GetDsmAppendix),
        VTablePlaces::PlaceOf(&IHttpRequestDsm::InitParam),
    };
    for (int i = 0; i < static_cast<int>(places.size()); ++i) {
        EXPECT_EQ(places[static_cast<std::size_t>(i)], first + i) << "operation " << i;
    }
}

TEST(HttpModuleSlotsTest, TwoRequestsDifferInWhatTheyContribute)
{
    const FirstRequest first;
    const SecondRequest second;
    const int count = VTablePlaces::PlaceOf(&IHttpRequestDsm::InitParam) + 1;
    const int destructor = VTablePlaces::PlaceOf(&QObject::event) - 2;
    EXPECT_THAT(VTablePlaces::Differences(VTablePlaces::Read<IHttpRequest>(first, count),
                                          VTablePlaces::Read<IHttpRequest>(second, count)),
                ElementsAre(destructor, destructor + 1, VTablePlaces::PlaceOf(&IHttpRequestDsm::GetDsmMethod),
                            VTablePlaces::PlaceOf(&IHttpRequestDsm::GetBusinessParam)));
}

TEST(HttpModuleSlotsTest, AResponsesOperationsFollowThoseOfQObjectWithoutAGap)
{
    const int first = PlaceOfLastOfQObject() + 1;
    const std::vector<int> places = {
        VTablePlaces::PlaceOf(&IHttpResponseDsm::SetData),
        VTablePlaces::PlaceOf(&IHttpResponseDsm::IsSuccess),
        VTablePlaces::PlaceOf(&IHttpResponseDsm::GetErrorCode),
        VTablePlaces::PlaceOf(&IHttpResponseDsm::GetErrorDesc),
        VTablePlaces::PlaceOf(&IHttpResponseDsm::ShouldRetry),
        VTablePlaces::PlaceOf(&IHttpResponseDsm::DoReset),
        VTablePlaces::PlaceOf(&IHttpResponseDsm::GetSuccessCode),
        VTablePlaces::PlaceOf(&IHttpResponseDsm::SetNetworkError),
        VTablePlaces::PlaceOf(&IHttpResponseDsm::ParseJsonData),
        VTablePlaces::PlaceOf(&IHttpResponseDsm::ParseBusinessData),
    };
    for (int i = 0; i < static_cast<int>(places.size()); ++i) {
        EXPECT_EQ(places[static_cast<std::size_t>(i)], first + i) << "operation " << i;
    }
}

TEST(HttpModuleSlotsTest, TheTwoKindsOfResponseDifferInTheParseOnly)
{
    const HttpResponseBasicDsm<bool> basic;
    const HttpResponseObjectDsm<FakeRecord> object;
    const int count = VTablePlaces::PlaceOf(&IHttpResponseDsm::ParseBusinessData) + 1;
    const int destructor = VTablePlaces::PlaceOf(&QObject::event) - 2;
    EXPECT_THAT(
        VTablePlaces::Differences(VTablePlaces::Read<IHttpResponse>(basic, count),
                                  VTablePlaces::Read<IHttpResponse>(object, count)),
        ElementsAre(destructor, destructor + 1, VTablePlaces::PlaceOf(&IHttpResponseDsm::ParseBusinessData)));
}

TEST(HttpModuleSlotsTest, TheCacheSideKeepsTheOrderOfItsInterface)
{
    EXPECT_EQ(VTablePlaces::PlaceOf(&IRequestCacheMethod::GetCTParam),
              VTablePlaces::PlaceOf(&IRequestCacheMethod::GetCacheKey) + 1);
    EXPECT_EQ(VTablePlaces::PlaceOf(&IRequestCacheMethod::GetSuccessParam),
              VTablePlaces::PlaceOf(&IRequestCacheMethod::GetCTParam) + 1);
    EXPECT_EQ(VTablePlaces::PlaceOf(&IResponseCacheMethod::CanSaveToCache),
              VTablePlaces::PlaceOf(&IResponseCacheMethod::IsAutoCache) + 1);
    EXPECT_EQ(VTablePlaces::PlaceOf(&IResponseCacheMethod::NeedReadFromCache),
              VTablePlaces::PlaceOf(&IResponseCacheMethod::IsAutoCache) + 2);
    EXPECT_EQ(VTablePlaces::PlaceOf(&IResponseCacheMethod::GetCacheData),
              VTablePlaces::PlaceOf(&IResponseCacheMethod::IsAutoCache) + 3);
    EXPECT_EQ(VTablePlaces::PlaceOf(&IResponseCacheMethod::SetCacheData),
              VTablePlaces::PlaceOf(&IResponseCacheMethod::IsAutoCache) + 4);
}

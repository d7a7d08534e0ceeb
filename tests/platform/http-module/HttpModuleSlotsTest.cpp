#include "VirtualPlaces.h"

#include "FakeRecord.h"

#include "http-module/HttpResponseBasicDsm.h"
#include "http-module/HttpResponseObjectDsm.h"
#include "http-module/IHttpRequestDsm.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;

namespace {

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
    const int first = VirtualPlaces::OfLastOfQObject() + 1;
    const std::vector<int> places = {
        VirtualPlaces::Of(&IHttpRequestDsm::GetApiUrl),
        VirtualPlaces::Of(&IHttpRequestDsm::GetHostIp),
        VirtualPlaces::Of(&IHttpRequestDsm::GetApiBody),
        VirtualPlaces::Of(&IHttpRequestDsm::GetMethodName),
        VirtualPlaces::Of(&IHttpRequestDsm::GetLogInfo),
        VirtualPlaces::Of(&IHttpRequestDsm::IsDegradeApi),
        VirtualPlaces::Of(&IHttpRequestDsm::GetDegradeDescription),
        VirtualPlaces::Of(&IHttpRequestDsm::DoReset),
        VirtualPlaces::Of(&IHttpRequestDsm::GetDsmMethod),
        VirtualPlaces::Of(&IHttpRequestDsm::GetBusinessParam),
        VirtualPlaces::Of(&IHttpRequestDsm::GetDsmAppendix),
        VirtualPlaces::Of(&IHttpRequestDsm::InitParam),
    };
    for (int i = 0; i < static_cast<int>(places.size()); ++i) {
        EXPECT_EQ(places[static_cast<std::size_t>(i)], first + i) << "operation " << i;
    }
}

TEST(HttpModuleSlotsTest, TwoRequestsDifferInWhatTheyContribute)
{
    const FirstRequest first;
    const SecondRequest second;
    const int count = VirtualPlaces::Of(&IHttpRequestDsm::InitParam) + 1;
    const int destructor = VirtualPlaces::OfFirstEvent() - 2;
    EXPECT_THAT(VirtualPlaces::Differences<IHttpRequest>(first, second, count),
                ElementsAre(destructor, destructor + 1, VirtualPlaces::Of(&IHttpRequestDsm::GetDsmMethod),
                            VirtualPlaces::Of(&IHttpRequestDsm::GetBusinessParam)));
}

TEST(HttpModuleSlotsTest, AResponsesOperationsFollowThoseOfQObjectWithoutAGap)
{
    const int first = VirtualPlaces::OfLastOfQObject() + 1;
    const std::vector<int> places = {
        VirtualPlaces::Of(&IHttpResponseDsm::SetData),
        VirtualPlaces::Of(&IHttpResponseDsm::IsSuccess),
        VirtualPlaces::Of(&IHttpResponseDsm::GetErrorCode),
        VirtualPlaces::Of(&IHttpResponseDsm::GetErrorDesc),
        VirtualPlaces::Of(&IHttpResponseDsm::ShouldRetry),
        VirtualPlaces::Of(&IHttpResponseDsm::DoReset),
        VirtualPlaces::Of(&IHttpResponseDsm::GetSuccessCode),
        VirtualPlaces::Of(&IHttpResponseDsm::SetNetworkError),
        VirtualPlaces::Of(&IHttpResponseDsm::ParseJsonData),
        VirtualPlaces::Of(&IHttpResponseDsm::ParseBusinessData),
    };
    for (int i = 0; i < static_cast<int>(places.size()); ++i) {
        EXPECT_EQ(places[static_cast<std::size_t>(i)], first + i) << "operation " << i;
    }
}

TEST(HttpModuleSlotsTest, TheTwoKindsOfResponseDifferInTheParseOnly)
{
    const HttpResponseBasicDsm<bool> basic;
    const HttpResponseObjectDsm<FakeRecord> object;
    const int count = VirtualPlaces::Of(&IHttpResponseDsm::ParseBusinessData) + 1;
    const int destructor = VirtualPlaces::OfFirstEvent() - 2;
    EXPECT_THAT(
        VirtualPlaces::Differences<IHttpResponse>(basic, object, count),
        ElementsAre(destructor, destructor + 1, VirtualPlaces::Of(&IHttpResponseDsm::ParseBusinessData)));
}

TEST(HttpModuleSlotsTest, TheCacheSideKeepsTheOrderOfItsInterface)
{
    EXPECT_EQ(VirtualPlaces::Of(&IRequestCacheMethod::GetCTParam),
              VirtualPlaces::Of(&IRequestCacheMethod::GetCacheKey) + 1);
    EXPECT_EQ(VirtualPlaces::Of(&IRequestCacheMethod::GetSuccessParam),
              VirtualPlaces::Of(&IRequestCacheMethod::GetCTParam) + 1);
    EXPECT_EQ(VirtualPlaces::Of(&IResponseCacheMethod::CanSaveToCache),
              VirtualPlaces::Of(&IResponseCacheMethod::IsAutoCache) + 1);
    EXPECT_EQ(VirtualPlaces::Of(&IResponseCacheMethod::NeedReadFromCache),
              VirtualPlaces::Of(&IResponseCacheMethod::IsAutoCache) + 2);
    EXPECT_EQ(VirtualPlaces::Of(&IResponseCacheMethod::GetCacheData),
              VirtualPlaces::Of(&IResponseCacheMethod::IsAutoCache) + 3);
    EXPECT_EQ(VirtualPlaces::Of(&IResponseCacheMethod::SetCacheData),
              VirtualPlaces::Of(&IResponseCacheMethod::IsAutoCache) + 4);
}

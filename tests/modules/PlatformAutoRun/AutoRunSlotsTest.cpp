#include "VTablePlaces.h"

#include "AutoRunCollectionEntity.h"
#include "AutoRunInfoEntity.h"
#include "GetAutoRunRequest.h"
#include "PlatformAutoRun.h"
#include "PlatformAutoRunLifeCycle.h"
#include "PlatformAutoRunModule.h"
#include "PlatformAutoRunRouter.h"
#include "SetAutoRunRequest.h"
#include "TLAutoRunLogic.h"
#include "TLRecoverManager.h"
#include "TLRestartManager.h"
#include "TLTabRecoverData.h"
#include "TabRecoverItem.h"

#include "http-module/HttpResponseBasicDsm.h"
#include "http-module/HttpResponseObjectDsm.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <vector>

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using VTablePlaces::PlaceOf;
using VTablePlaces::SlotOf;

namespace {

// Places of what every QObject has.
constexpr int PlaceOfDestructor = 3;
constexpr int LastPlaceOfQObject = 11;

struct QObjectOperations : QObject
{
    using QObject::childEvent;
    using QObject::connectNotify;
    using QObject::customEvent;
    using QObject::disconnectNotify;
    using QObject::timerEvent;
};

struct RecordHooks : VXJsonParserBase
{
    using VXJsonParserBase::GetParseErrorSpecial;
    using VXJsonParserBase::JoinToJson;
    using VXJsonParserBase::ParseSpecial;
    using VXJsonParserBase::ToSpecial;
};

/// Overrides only what it must, so that all else in its vtable is the host's.
class PlainModule final : public IBusinessModule
{
public:
    void InitModule() override {}
    void UninitModule() override {}
    ILifeCycle* GetLifeCycle() override { return nullptr; }
    IRouteInterceptor* GetRouteInterceptor() override { return nullptr; }
    ISysSettingFactory* GetSysSettingFactory() override { return nullptr; }
};

class PlainLifeCycle final : public ILifeCycle
{};

class PlainRouter final : public IRouteInterceptor
{
public:
    bool InterceptRoute(const VXRouterProtocol&) override { return false; }
    QStringList GetRouteUrls() override { return {}; }
};

class PlainRequest final : public IHttpRequestDsm
{
public:
    QString GetDsmMethod() const override { return {}; }
    QByteArray GetBusinessParam() const override { return {}; }
};

class PlainResponse final : public IHttpResponseDsm
{
public:
    QSharedPointer<BusinessParseResult> ParseBusinessData(const QJsonValue&) override { return {}; }
};

std::vector<int> RequestPlaces()
{
    return {PlaceOf(&IHttpRequest::GetApiUrl),
            PlaceOf(&IHttpRequest::GetHostIp),
            PlaceOf(&IHttpRequest::GetApiBody),
            PlaceOf(&IHttpRequest::GetMethodName),
            PlaceOf(&IHttpRequest::GetLogInfo),
            PlaceOf(&IHttpRequest::IsDegradeApi),
            PlaceOf(&IHttpRequest::GetDegradeDescription),
            PlaceOf(&IHttpRequest::DoReset),
            PlaceOf(&IHttpRequestDsm::GetDsmMethod),
            PlaceOf(&IHttpRequestDsm::GetBusinessParam),
            PlaceOf(&IHttpRequestDsm::GetDsmAppendix),
            PlaceOf(&IHttpRequestDsm::InitParam)};
}

std::vector<int> ResponsePlaces()
{
    return {PlaceOf(&IHttpResponse::SetData),           PlaceOf(&IHttpResponse::IsSuccess),
            PlaceOf(&IHttpResponse::GetErrorCode),      PlaceOf(&IHttpResponse::GetErrorDesc),
            PlaceOf(&IHttpResponse::ShouldRetry),       PlaceOf(&IHttpResponse::DoReset),
            PlaceOf(&IHttpResponse::GetSuccessCode),    PlaceOf(&IHttpResponse::SetNetworkError),
            PlaceOf(&IHttpResponseBase::ParseJsonData), PlaceOf(&IHttpResponseDsm::ParseBusinessData)};
}

std::vector<int> Sorted(std::vector<int> places)
{
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

} // namespace

TEST(AutoRunSlotsTest, ModuleInterfaceStandsInSlotOrder)
{
    EXPECT_EQ(SlotOf(&IBusinessModule::InitModule), 1);
    EXPECT_EQ(SlotOf(&IBusinessModule::UninitModule), 2);
    EXPECT_EQ(SlotOf(&IBusinessModule::GetLifeCycle), 3);
    EXPECT_EQ(SlotOf(&IBusinessModule::GetRouteInterceptor), 4);
    EXPECT_EQ(SlotOf(&IBusinessModule::GetReserved5), 5);
    EXPECT_EQ(SlotOf(&IBusinessModule::GetReserved6), 6);
    EXPECT_EQ(SlotOf(&IBusinessModule::GetReserved7), 7);
    EXPECT_EQ(SlotOf(&IBusinessModule::GetSysSettingFactory), 8);
    EXPECT_EQ(SlotOf(&IBusinessModule::GetReserved9), 9);
}

TEST(AutoRunSlotsTest, ModuleLeavesTheSlotsOfWhatItDoesNotOfferToTheHost)
{
    PlatformAutoRunModule module;
    PlainModule plain;
    // Places are one more than slots: the destructor takes two.
    EXPECT_THAT(VTablePlaces::Differences(VTablePlaces::Read<IBusinessModule>(module, 11),
                                          VTablePlaces::Read<IBusinessModule>(plain, 11)),
                ElementsAre(0, 1, 2, 3, 4, 5, 9));
}

TEST(AutoRunSlotsTest, ModuleIsFirstAQObjectThenTheInterface)
{
    PlatformAutoRunModule module;
    EXPECT_EQ(static_cast<void*>(static_cast<QObject*>(&module)), static_cast<void*>(&module));
    EXPECT_EQ(reinterpret_cast<char*>(static_cast<IBusinessModule*>(&module)),
              reinterpret_cast<char*>(&module) + sizeof(QObject));
}

TEST(AutoRunSlotsTest, LifeCycleInterfaceStandsInSlotOrder)
{
    EXPECT_EQ(SlotOf(&ILifeCycle::LoginSuccess), 1);
    EXPECT_EQ(SlotOf(&ILifeCycle::GetUserInfoSuccess), 2);
    EXPECT_EQ(SlotOf(&ILifeCycle::LogOut), 3);
    EXPECT_EQ(SlotOf(&ILifeCycle::ReLoginSuccess), 4);
    EXPECT_EQ(SlotOf(&ILifeCycle::SwitchUserStateSuccess), 5);
    EXPECT_EQ(SlotOf(&ILifeCycle::StartApp), 6);
    EXPECT_EQ(SlotOf(&ILifeCycle::BeforeLoginConstruct), 7);
    EXPECT_EQ(SlotOf(&ILifeCycle::MainFrameCreate), 8);
    EXPECT_EQ(SlotOf(&ILifeCycle::MainFrameShow), 9);
    EXPECT_EQ(SlotOf(&ILifeCycle::MainFrameQuit), 10);
    EXPECT_EQ(SlotOf(&ILifeCycle::BeforeMainFrameDestruct), 11);
    EXPECT_EQ(SlotOf(&ILifeCycle::ExitApp), 12);
    EXPECT_EQ(SlotOf(&ILifeCycle::BeforeClose), 13);
}

TEST(AutoRunSlotsTest, LifeCycleOverridesTheMainFrameHooksAndLeavesTheOthersToTheHost)
{
    PlatformAutoRunLifeCycle lifeCycle;
    PlainLifeCycle plain;
    EXPECT_THAT(VTablePlaces::Differences(VTablePlaces::Read<ILifeCycle>(lifeCycle, 15),
                                          VTablePlaces::Read<ILifeCycle>(plain, 15)),
                ElementsAre(0, 1, 9, 10, 11));
}

TEST(AutoRunSlotsTest, LifeCycleIsFirstAQObjectThenTheHooksThenTheObserver)
{
    PlatformAutoRunLifeCycle lifeCycle;
    auto* begin = reinterpret_cast<char*>(&lifeCycle);
    EXPECT_EQ(reinterpret_cast<char*>(static_cast<QObject*>(&lifeCycle)), begin);
    EXPECT_EQ(reinterpret_cast<char*>(static_cast<ILifeCycle*>(&lifeCycle)), begin + sizeof(QObject));
    EXPECT_EQ(reinterpret_cast<char*>(static_cast<HttpObserverBase*>(&lifeCycle)),
              begin + sizeof(QObject) + sizeof(ILifeCycle));
    EXPECT_EQ(sizeof(lifeCycle), sizeof(QObject) + sizeof(ILifeCycle) + sizeof(HttpObserverBase))
        << "it has no fields of its own";
}

TEST(AutoRunSlotsTest, ObserverHasItsNotificationInSlot1)
{
    EXPECT_EQ(SlotOf(&HttpObserverBase::OnHttpNotify), 1);
}

TEST(AutoRunSlotsTest, RecordStandsInSlotOrder)
{
    EXPECT_EQ(PlaceOf(&QObject::metaObject), 0);
    EXPECT_EQ(PlaceOf(&QObject::qt_metacast), 1);
    EXPECT_EQ(PlaceOf(&QObject::qt_metacall), 2);
    EXPECT_EQ(PlaceOf(&QObject::event), PlaceOfDestructor + VTablePlaces::DestructorPlaces);
    EXPECT_EQ(PlaceOf(&QObject::eventFilter), 6);
    EXPECT_EQ(PlaceOf(&QObjectOperations::timerEvent), 7);
    EXPECT_EQ(PlaceOf(&QObjectOperations::childEvent), 8);
    EXPECT_EQ(PlaceOf(&QObjectOperations::customEvent), 9);
    EXPECT_EQ(PlaceOf(&QObjectOperations::connectNotify), 10);
    EXPECT_EQ(PlaceOf(&QObjectOperations::disconnectNotify), LastPlaceOfQObject);
    EXPECT_EQ(PlaceOf(&RecordHooks::ParseSpecial), 12);
    EXPECT_EQ(PlaceOf(&RecordHooks::ToSpecial), 13);
    EXPECT_EQ(PlaceOf(&RecordHooks::JoinToJson), 14);
    EXPECT_EQ(PlaceOf(&RecordHooks::GetParseErrorSpecial), 15);
}

TEST(AutoRunSlotsTest, EntryOverridesNoneOfTheRecordsHooks)
{
    const AutoRunInfoEntity entry;
    const VXJsonParserBase plain;
    EXPECT_THAT(VTablePlaces::Differences(VTablePlaces::Read<VXJsonParserBase>(entry, 16),
                                          VTablePlaces::Read<VXJsonParserBase>(plain, 16)),
                ElementsAre(0, 1, 2, 3, 4));
}

TEST(AutoRunSlotsTest, CollectionOverridesParseSpecialAndToSpecialOnly)
{
    const AutoRunCollectionEntity collection;
    const VXJsonParserBase plain;
    EXPECT_THAT(VTablePlaces::Differences(VTablePlaces::Read<VXJsonParserBase>(collection, 16),
                                          VTablePlaces::Read<VXJsonParserBase>(plain, 16)),
                ElementsAre(0, 1, 2, 3, 4, 12, 13));
}

TEST(AutoRunSlotsTest, TabItemOverridesNoneOfTheRecordsHooks)
{
    const TabRecoverItem item;
    const VXJsonParserBase plain;
    EXPECT_THAT(VTablePlaces::Differences(VTablePlaces::Read<VXJsonParserBase>(item, 16),
                                          VTablePlaces::Read<VXJsonParserBase>(plain, 16)),
                ElementsAre(0, 1, 2, 3, 4));
}

TEST(AutoRunSlotsTest, TabRecordOverridesParseSpecialAndToSpecialOnly)
{
    const TLTabRecoverData data;
    const VXJsonParserBase plain;
    EXPECT_THAT(VTablePlaces::Differences(VTablePlaces::Read<VXJsonParserBase>(data, 16),
                                          VTablePlaces::Read<VXJsonParserBase>(plain, 16)),
                ElementsAre(0, 1, 2, 3, 4, 12, 13));
}

TEST(AutoRunSlotsTest, ManagersOfTabRecordsAreQObjectsAndNothingElse)
{
    const QObject plain;
    const QObject* recover = TLRecoverManager::Instance();
    const QObject* restart = TLRestartManager::Instance();
    for (const QObject* manager : {recover, restart}) {
        EXPECT_THAT(VTablePlaces::Differences(VTablePlaces::Read<QObject>(*manager, LastPlaceOfQObject + 1),
                                              VTablePlaces::Read<QObject>(plain, LastPlaceOfQObject + 1)),
                    ElementsAre(0, 1, 2, 3, 4));
    }
    EXPECT_EQ(sizeof(TLRecoverManager), sizeof(QObject)) << "it has no fields of its own";
    EXPECT_EQ(sizeof(TLRestartManager), sizeof(QObject)) << "it has no fields of its own";
    TLRecoverManager::ReleaseInstance();
    TLRestartManager::ReleaseInstance();
}

TEST(AutoRunSlotsTest, RouteInterceptorStandsInSlotOrder)
{
    EXPECT_EQ(SlotOf(&IRouteInterceptor::InterceptRoute), 1);
    EXPECT_EQ(SlotOf(&IRouteInterceptor::HasRouteValue), 2);
    EXPECT_EQ(SlotOf(&IRouteInterceptor::GetRouteValue), 3);
    EXPECT_EQ(SlotOf(&IRouteInterceptor::GetRouteUrls), 4);
}

TEST(AutoRunSlotsTest, RouterOverridesInterceptRouteAndGetRouteUrlsOnly)
{
    PlatformAutoRunRouter router;
    PlainRouter plain;
    // Places are one more than slots: the destructor takes two.
    EXPECT_THAT(VTablePlaces::Differences(VTablePlaces::Read<IRouteInterceptor>(router, 6),
                                          VTablePlaces::Read<IRouteInterceptor>(plain, 6)),
                ElementsAre(0, 1, 2, 5));
}

TEST(AutoRunSlotsTest, RouterIsFirstAQObjectThenTheInterface)
{
    PlatformAutoRunRouter router;
    auto* begin = reinterpret_cast<char*>(&router);
    EXPECT_EQ(reinterpret_cast<char*>(static_cast<QObject*>(&router)), begin);
    EXPECT_EQ(reinterpret_cast<char*>(static_cast<IRouteInterceptor*>(&router)), begin + sizeof(QObject));
    EXPECT_EQ(sizeof(router), sizeof(QObject) + sizeof(IRouteInterceptor)) << "it has no fields of its own";
}

TEST(AutoRunSlotsTest, RequestStandsInSlotOrder)
{
    const std::vector<int> places = RequestPlaces();
    EXPECT_EQ(places.front(), LastPlaceOfQObject + 1);
    EXPECT_THAT(places, ElementsAreArray(Sorted(places)));
}

TEST(AutoRunSlotsTest, RequestsAddTheirMethodAndBusinessJsonAndNothingElse)
{
    const std::vector<int> expected{0,
                                    1,
                                    2,
                                    PlaceOfDestructor,
                                    PlaceOfDestructor + 1,
                                    PlaceOf(&IHttpRequestDsm::GetDsmMethod),
                                    PlaceOf(&IHttpRequestDsm::GetBusinessParam)};
    const std::vector<int> destructor{0, 1};
    const int count = RequestPlaces().back() + 1;
    const PlainRequest plain;
    const GetAutoRunRequest read;
    const SetAutoRunRequest write;
    for (const IHttpRequestDsm* request :
         {static_cast<const IHttpRequestDsm*>(&read), static_cast<const IHttpRequestDsm*>(&write)}) {
        EXPECT_THAT(VTablePlaces::Differences(VTablePlaces::Read<IHttpRequestDsm>(*request, count),
                                              VTablePlaces::Read<IHttpRequestDsm>(plain, count)),
                    ElementsAreArray(expected));
        EXPECT_THAT(VTablePlaces::Differences(VTablePlaces::Read<IRequestCacheMethod>(*request, 5),
                                              VTablePlaces::Read<IRequestCacheMethod>(plain, 5)),
                    ElementsAreArray(destructor))
            << "how replies are kept is the host's";
    }
}

TEST(AutoRunSlotsTest, ResponseStandsInSlotOrderWithTheBusinessValueLast)
{
    const std::vector<int> places = ResponsePlaces();
    EXPECT_EQ(places.front(), LastPlaceOfQObject + 1);
    EXPECT_THAT(places, ElementsAreArray(Sorted(places)));
}

TEST(AutoRunSlotsTest, ResponsesAddTheBusinessValueAndNothingElse)
{
    const std::vector<int> expected{PlaceOfDestructor, PlaceOfDestructor + 1,
                                    PlaceOf(&IHttpResponseDsm::ParseBusinessData)};
    const int count = ResponsePlaces().back() + 1;
    const HttpResponseObjectDsm<AutoRunCollectionEntity> read;
    const HttpResponseBasicDsm<bool> write;
    const PlainResponse plain;
    EXPECT_THAT(VTablePlaces::Differences(VTablePlaces::Read<IHttpResponseDsm>(read, count),
                                          VTablePlaces::Read<IHttpResponseDsm>(plain, count)),
                ElementsAreArray(expected));
    EXPECT_THAT(VTablePlaces::Differences(VTablePlaces::Read<IHttpResponseDsm>(write, count),
                                          VTablePlaces::Read<IHttpResponseDsm>(plain, count)),
                ElementsAreArray(expected));
}

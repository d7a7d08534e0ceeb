#include "TLAutoRunLogic.h"

#include "AutoRunTest.h"

#include "AutoRunCollectionEntity.h"
#include "AutoRunIdentifiers.h"
#include "GetAutoRunRequest.h"
#include "RecordingObserver.h"
#include "SetAutoRunRequest.h"

#include "frame-data/TLPluginBaseManager.h"
#include "http-module/HttpResponseBasicDsm.h"
#include "http-module/HttpResponseObjectDsm.h"
#include "http/HttpNotifyManager.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QPointer>

#include <gtest/gtest.h>

namespace {

class TLAutoRunLogicTest : public AutoRunTest
{
protected:
    RecordingObserver observer{{10400, 10401}, &journal};
};

QStringList ItemIdsOf(const QList<AutoRunInfoEntityPtr>& entries)
{
    QStringList ids;
    for (const AutoRunInfoEntityPtr& entry : entries) {
        ids.append(entry ? entry->itemId : QStringLiteral("(null)"));
    }
    return ids;
}

QStringList ListedIds()
{
    QList<AutoRunInfoEntityPtr> entries;
    TLAutoRunLogic::Instance()->GetAutoRunList(entries);
    return ItemIdsOf(entries);
}

AutoRunInfoEntityPtr Entry(const char* itemId)
{
    const auto entry = AutoRunInfoEntityPtr::create();
    entry->itemId = QLatin1String(itemId);
    return entry;
}

const QStringList ReadAnnounced{QStringLiteral("notify 10400"), QStringLiteral("event GetAutoRun")};
const QStringList WriteAnnounced{QStringLiteral("notify 10401"), QStringLiteral("event SetAutoRun")};

} // namespace

TEST_F(TLAutoRunLogicTest, DeclaresNoSignalSlotOrProperty)
{
    const QMetaObject& metaObject = TLAutoRunLogic::staticMetaObject;
    EXPECT_STREQ(metaObject.className(), "TLAutoRunLogic");
    EXPECT_EQ(metaObject.methodCount(), metaObject.methodOffset());
    EXPECT_EQ(metaObject.propertyCount(), metaObject.propertyOffset());
}

TEST_F(TLAutoRunLogicTest, ReadIsSentWith20SecondsAndMode2AndAutoCache)
{
    TLAutoRunLogic::Instance()->RequestAutoRun(QString());
    ASSERT_EQ(http.GetCallCount(), 1);
    const FakeHttpManager::Call& call = http.GetCall(0);
    EXPECT_EQ(call.timeout, 20000);
    EXPECT_EQ(call.attempts, 2);
    EXPECT_NE(qobject_cast<GetAutoRunRequest*>(call.request.data()), nullptr);
    const auto response = call.response.dynamicCast<HttpResponseObjectDsm<AutoRunCollectionEntity>>();
    ASSERT_TRUE(response);
    EXPECT_TRUE(response->IsAutoCache());
    EXPECT_EQ(journal, QStringList()) << "nothing is announced before the end";
}

TEST_F(TLAutoRunLogicTest, ReadIsTaggedWithTheIdentity)
{
    TLAutoRunLogic::Instance()->RequestAutoRun(QStringLiteral("6844BE03-D3FF-4ADC-9E01-005CEC79F162"));
    EXPECT_EQ(http.GetCall(0).request->GetIdentity(), QStringLiteral("6844BE03-D3FF-4ADC-9E01-005CEC79F162"));
}

TEST_F(TLAutoRunLogicTest, EmptyIdentityLeavesTheReadUntagged)
{
    TLAutoRunLogic::Instance()->RequestAutoRun(QString());
    EXPECT_TRUE(http.GetCall(0).request->GetIdentity().isEmpty());
}

TEST_F(TLAutoRunLogicTest, ListBeforeAnyReadLeavesTheCallersListUnchanged)
{
    QList<AutoRunInfoEntityPtr> entries;
    TLAutoRunLogic::Instance()->GetAutoRunList(entries);
    EXPECT_TRUE(entries.isEmpty());

    const QList<AutoRunInfoEntityPtr> before{Entry("x")};
    entries = before;
    TLAutoRunLogic::Instance()->GetAutoRunList(entries);
    EXPECT_EQ(entries, before);
}

TEST_F(TLAutoRunLogicTest, CollectionBeforeAnyReadLeavesTheCallersListsUnchanged)
{
    const QList<AutoRunInfoEntityPtr> before{Entry("x")};
    QList<AutoRunInfoEntityPtr> system = before;
    QList<AutoRunInfoEntityPtr> custom = before;
    QList<AutoRunInfoEntityPtr> plugin;
    TLAutoRunLogic::Instance()->GetAutoRunCollection(system, custom, plugin);
    EXPECT_EQ(system, before);
    EXPECT_EQ(custom, before);
    EXPECT_TRUE(plugin.isEmpty());
}

TEST_F(TLAutoRunLogicTest, ListOfTwoSystemNoCustomAndOneAppEntryEndsWithTheApp)
{
    ReadConfiguration(R"({"itemId":"s1"},{"itemId":"s2"})", "", R"({"itemId":"p1","type":1})");
    const QStringList expected{QStringLiteral("s1"), QStringLiteral("s2"), QStringLiteral("p1")};
    EXPECT_EQ(ListedIds(), expected);
}

TEST_F(TLAutoRunLogicTest, ListGoesSystemCustomAppAndDropsWhatTheCallerHad)
{
    ReadConfiguration(R"({"itemId":"s1"})", R"({"itemId":"c1"},{"itemId":"c2"})", R"({"itemId":"p1"})");
    QList<AutoRunInfoEntityPtr> entries{Entry("x")};
    TLAutoRunLogic::Instance()->GetAutoRunList(entries);
    const QStringList expected{QStringLiteral("s1"), QStringLiteral("c1"), QStringLiteral("c2"),
                               QStringLiteral("p1")};
    EXPECT_EQ(ItemIdsOf(entries), expected);
}

TEST_F(TLAutoRunLogicTest, CollectionGivesTheThreeListsAndDropsWhatTheCallerHad)
{
    ReadConfiguration(R"({"itemId":"s1"})", R"({"itemId":"c1"})", "");
    QList<AutoRunInfoEntityPtr> system{Entry("x")};
    QList<AutoRunInfoEntityPtr> custom{Entry("x")};
    QList<AutoRunInfoEntityPtr> plugin{Entry("x")};
    TLAutoRunLogic::Instance()->GetAutoRunCollection(system, custom, plugin);
    EXPECT_EQ(ItemIdsOf(system), QStringList{QStringLiteral("s1")});
    EXPECT_EQ(ItemIdsOf(custom), QStringList{QStringLiteral("c1")});
    EXPECT_TRUE(plugin.isEmpty());
}

TEST_F(TLAutoRunLogicTest, EntriesHandedOutAreThoseOfTheCache)
{
    ReadConfiguration(R"({"itemId":"s1"})");
    QList<AutoRunInfoEntityPtr> flat;
    TLAutoRunLogic::Instance()->GetAutoRunList(flat);
    ASSERT_EQ(flat.size(), 1);
    flat.first()->checked = true;
    flat.clear();

    QList<AutoRunInfoEntityPtr> system;
    QList<AutoRunInfoEntityPtr> other;
    TLAutoRunLogic::Instance()->GetAutoRunCollection(system, other, other);
    ASSERT_EQ(system.size(), 1);
    EXPECT_TRUE(system.first()->checked);
}

TEST_F(TLAutoRunLogicTest, ChangingAListHandedOutLeavesTheCachedList)
{
    ReadConfiguration(R"({"itemId":"s1"})");
    QList<AutoRunInfoEntityPtr> flat;
    TLAutoRunLogic::Instance()->GetAutoRunList(flat);
    flat.append(Entry("x"));
    EXPECT_EQ(ListedIds(), QStringList{QStringLiteral("s1")});
}

TEST_F(TLAutoRunLogicTest, FinishedReadIsAnnouncedFirstByNotificationThenByEvent)
{
    TLAutoRunLogic::Instance()->RequestAutoRun(QString());
    const QSharedPointer<IHttpRequest> request = http.GetCall(0).request;
    const QSharedPointer<IHttpResponse> response = http.GetCall(0).response;
    AnswerConfiguration(R"({"itemId":"s1"})");

    EXPECT_EQ(journal, ReadAnnounced);
    ASSERT_EQ(observer.GetNotifications().size(), 1u);
    EXPECT_EQ(observer.GetNotifications().front().request, request);
    EXPECT_EQ(observer.GetNotifications().front().response, response);
    ASSERT_EQ(events.GetEvents().size(), 1u);
    EXPECT_EQ(events.GetEvents().front().sender, QStringLiteral("PlatformAutoRun"));
    EXPECT_EQ(events.GetEvents().front().event.GetSender(), QStringLiteral("PlatformAutoRun"));
    EXPECT_EQ(events.GetEvents().front().event.GetName(), QStringLiteral("GetAutoRun"));
    EXPECT_TRUE(events.GetEvents().front().event.GetArguments().isEmpty());
}

TEST_F(TLAutoRunLogicTest, CacheIsReplacedBeforeTheReadIsAnnounced)
{
    QStringList idsAtNotification;
    TLAutoRunLogic::Instance()->RequestAutoRun(QString());
    const QMetaObject::Connection connection = QObject::connect(
        HttpNotifyManager::Instance(), &HttpNotifyManager::SigDispatched, HttpNotifyManager::Instance(),
        [&idsAtNotification] { idsAtNotification = ListedIds(); });
    AnswerConfiguration(R"({"itemId":"s1"})");
    QObject::disconnect(connection);
    EXPECT_EQ(idsAtNotification, QStringList{QStringLiteral("s1")});
}

TEST_F(TLAutoRunLogicTest, CacheIsTheVeryObjectThatTheReplyWasParsedInto)
{
    TLAutoRunLogic::Instance()->RequestAutoRun(QString());
    const auto response =
        http.GetCall(0).response.dynamicCast<HttpResponseObjectDsm<AutoRunCollectionEntity>>();
    ASSERT_TRUE(response);
    AnswerConfiguration(R"({"itemId":"s1"})");
    response->GetEntity()->systemItems.append(Entry("s2"));
    const QStringList expected{QStringLiteral("s1"), QStringLiteral("s2")};
    EXPECT_EQ(ListedIds(), expected);
}

TEST_F(TLAutoRunLogicTest, FailedReadAfterAGoodOneKeepsServingTheOldConfiguration)
{
    ReadConfiguration(R"({"itemId":"s1"})");
    journal.clear();
    TLAutoRunLogic::Instance()->RequestAutoRun(QString());
    http.Fail(1);
    EXPECT_EQ(ListedIds(), QStringList{QStringLiteral("s1")});
    EXPECT_EQ(journal, ReadAnnounced);
    EXPECT_FALSE(observer.GetNotifications().back().response->IsSuccess());
}

TEST_F(TLAutoRunLogicTest, RefusedReadKeepsTheOldConfigurationAndIsAnnounced)
{
    ReadConfiguration(R"({"itemId":"s1"})");
    journal.clear();
    TLAutoRunLogic::Instance()->RequestAutoRun(QString());
    http.AnswerRaw(1, R"({"code":"2003","message":"expired","requestId":"r2","data":null})");
    EXPECT_EQ(ListedIds(), QStringList{QStringLiteral("s1")});
    EXPECT_EQ(journal, ReadAnnounced);
}

TEST_F(TLAutoRunLogicTest, ReplyOfAnotherShapeKeepsTheOldConfigurationAndIsAnnounced)
{
    ReadConfiguration(R"({"itemId":"s1"})");
    journal.clear();
    TLAutoRunLogic::Instance()->RequestAutoRun(QString());
    http.Answer(1, "[]");
    EXPECT_EQ(ListedIds(), QStringList{QStringLiteral("s1")});
    EXPECT_EQ(journal, ReadAnnounced);
}

TEST_F(TLAutoRunLogicTest, FailedFirstReadLeavesNothingCachedAndIsAnnounced)
{
    TLAutoRunLogic::Instance()->RequestAutoRun(QString());
    http.Fail(0);
    QList<AutoRunInfoEntityPtr> entries{Entry("x")};
    TLAutoRunLogic::Instance()->GetAutoRunList(entries);
    EXPECT_EQ(ItemIdsOf(entries), QStringList{QStringLiteral("x")});
    EXPECT_EQ(journal, ReadAnnounced);
}

TEST_F(TLAutoRunLogicTest, OfSeveralReadsInFlightTheLastSuccessToCompleteWins)
{
    TLAutoRunLogic::Instance()->RequestAutoRun(QString());
    TLAutoRunLogic::Instance()->RequestAutoRun(QStringLiteral("page"));
    TLAutoRunLogic::Instance()->RequestAutoRun(QString());
    http.Answer(1, R"({"systemItems":[{"itemId":"second"}]})");
    http.Answer(0, R"({"systemItems":[{"itemId":"first"}]})");
    http.Fail(2);
    EXPECT_EQ(ListedIds(), QStringList{QStringLiteral("first")});
    EXPECT_EQ(journal, ReadAnnounced + ReadAnnounced + ReadAnnounced);
    EXPECT_EQ(observer.GetNotifications().front().request->GetIdentity(), QStringLiteral("page"));
}

TEST_F(TLAutoRunLogicTest, LaterReadReplacesTheConfigurationAsAWhole)
{
    ReadConfiguration(R"({"itemId":"s1"})", R"({"itemId":"c1"})");
    ReadConfiguration("", R"({"itemId":"c2"})");
    EXPECT_EQ(ListedIds(), QStringList{QStringLiteral("c2")});
}

TEST_F(TLAutoRunLogicTest, ReadThatCompletesAfterTheReleaseIsSilent)
{
    TLAutoRunLogic::Instance()->RequestAutoRun(QString());
    TLAutoRunLogic::ReleaseInstance();
    AnswerConfiguration(R"({"itemId":"s1"})");
    EXPECT_EQ(journal, QStringList());
    EXPECT_EQ(ListedIds(), QStringList()) << "nor does a new object get the answer of the old one's read";
}

TEST_F(TLAutoRunLogicTest, ReleaseDeletesTheObjectAndASecondOneDoesNothing)
{
    const QPointer<TLAutoRunLogic> logic = TLAutoRunLogic::Instance();
    EXPECT_EQ(TLAutoRunLogic::Instance(), logic.data());
    TLAutoRunLogic::ReleaseInstance();
    EXPECT_TRUE(logic.isNull());
    TLAutoRunLogic::ReleaseInstance();
}

TEST_F(TLAutoRunLogicTest, WriteIsSentWith20SecondsAndMode2UntaggedAndUncached)
{
    TLAutoRunLogic::Instance()->SaveAutoRun({Entry("s1")}, {Entry("c1"), Entry("c2")}, {});
    ASSERT_EQ(http.GetCallCount(), 1);
    const FakeHttpManager::Call& call = http.GetCall(0);
    EXPECT_EQ(call.timeout, 20000);
    EXPECT_EQ(call.attempts, 2);
    EXPECT_TRUE(call.request->GetIdentity().isEmpty());
    const auto response = call.response.dynamicCast<HttpResponseBasicDsm<bool>>();
    ASSERT_TRUE(response);
    EXPECT_EQ(response->IsAutoCache(), HttpResponseBasicDsm<bool>().IsAutoCache());

    auto* request = qobject_cast<SetAutoRunRequest*>(call.request.data());
    ASSERT_NE(request, nullptr);
    AutoRunCollectionEntity sent;
    ASSERT_TRUE(sent.Parse(QJsonDocument::fromJson(request->GetBusinessParam())
                               .object()
                               .value(QStringLiteral("workstationSetResult"))
                               .toObject()));
    const QStringList custom{QStringLiteral("c1"), QStringLiteral("c2")};
    EXPECT_EQ(ItemIdsOf(sent.systemItems), QStringList{QStringLiteral("s1")});
    EXPECT_EQ(ItemIdsOf(sent.customItems), custom);
    EXPECT_TRUE(sent.pluginItems.isEmpty());
}

TEST_F(TLAutoRunLogicTest, WriteSharesTheEntriesInsteadOfCopyingThem)
{
    const AutoRunInfoEntityPtr entry = Entry("c1");
    TLAutoRunLogic::Instance()->SaveAutoRun({}, {entry}, {});
    auto* request = qobject_cast<SetAutoRunRequest*>(http.GetCall(0).request.data());
    ASSERT_NE(request, nullptr);
    EXPECT_FALSE(request->GetBusinessParam().contains("later"));
    entry->name = QStringLiteral("later");
    EXPECT_TRUE(request->GetBusinessParam().contains("later"));
}

TEST_F(TLAutoRunLogicTest, SuccessfulWriteIsAnnouncedExactlyOnce)
{
    TLAutoRunLogic::Instance()->SaveAutoRun({}, {}, {});
    const QSharedPointer<IHttpRequest> request = http.GetCall(0).request;
    const QSharedPointer<IHttpResponse> response = http.GetCall(0).response;
    http.Answer(0, "true");
    EXPECT_EQ(journal, WriteAnnounced);
    EXPECT_EQ(observer.GetNotifications().front().request, request);
    EXPECT_EQ(observer.GetNotifications().front().response, response);
    EXPECT_TRUE(response->IsSuccess());
    EXPECT_EQ(events.GetEvents().front().sender, QStringLiteral("PlatformAutoRun"));
    EXPECT_EQ(events.GetEvents().front().event.GetSender(), QStringLiteral("PlatformAutoRun"));
    EXPECT_TRUE(events.GetEvents().front().event.GetArguments().isEmpty());
}

TEST_F(TLAutoRunLogicTest, FailedWriteIsAnnouncedExactlyOnce)
{
    TLAutoRunLogic::Instance()->SaveAutoRun({}, {}, {});
    http.Fail(0);
    EXPECT_EQ(journal, WriteAnnounced);
    EXPECT_FALSE(observer.GetNotifications().front().response->IsSuccess());
}

TEST_F(TLAutoRunLogicTest, WriteDoesNotTouchTheCache)
{
    ReadConfiguration(R"({"itemId":"s1"})");
    TLAutoRunLogic::Instance()->SaveAutoRun({}, {Entry("c1")}, {});
    EXPECT_EQ(ListedIds(), QStringList{QStringLiteral("s1")});
    http.Answer(1, "true");
    EXPECT_EQ(ListedIds(), QStringList{QStringLiteral("s1")});
}

TEST_F(TLAutoRunLogicTest, WriteThatCompletesAfterTheReleaseIsAnnouncedAllTheSame)
{
    TLAutoRunLogic::Instance()->SaveAutoRun({}, {}, {});
    TLAutoRunLogic::ReleaseInstance();
    http.Answer(0, "true");
    EXPECT_EQ(journal, WriteAnnounced);
}

TEST_F(TLAutoRunLogicTest, RequestAndResponseEndWithTheirCompletion)
{
    HttpNotifyManager::Instance()->RemoveAllMessage(&observer); // it would keep them
    TLAutoRunLogic::Instance()->RequestAutoRun(QString());
    TLAutoRunLogic::Instance()->SaveAutoRun({}, {}, {});
    const QPointer<QObject> objects[] = {http.GetCall(0).request.data(), http.GetCall(0).response.data(),
                                         http.GetCall(1).request.data(), http.GetCall(1).response.data()};
    http.Answer(0, "null");
    http.Answer(1, "true");
    for (const QPointer<QObject>& object : objects) {
        EXPECT_TRUE(object.isNull());
    }
}

TEST_F(TLAutoRunLogicTest, PluginManagerIsTheObjectOfItsRouterUrl)
{
    TLPluginBaseManager manager;
    routes.SetRouteObject(QStringLiteral("tl://plugins/object"), &manager);
    EXPECT_EQ(TLAutoRunLogic::Instance()->GetPluginManager(), &manager);
}

TEST_F(TLAutoRunLogicTest, PluginManagerIsNullWhenTheRouterUrlYieldsAnObjectOfAnotherClass)
{
    QObject other;
    routes.SetRouteObject(QStringLiteral("tl://plugins/object"), &other);
    EXPECT_EQ(TLAutoRunLogic::Instance()->GetPluginManager(), nullptr);
}

TEST_F(TLAutoRunLogicTest, PluginManagerIsNullWhenTheRouterUrlYieldsNothing)
{
    EXPECT_EQ(TLAutoRunLogic::Instance()->GetPluginManager(), nullptr);
}

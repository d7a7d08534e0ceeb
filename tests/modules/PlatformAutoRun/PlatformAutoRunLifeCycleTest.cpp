#include "PlatformAutoRunLifeCycle.h"

#include "QuestionAnswer.h"
#include "TabRecordTest.h"

#include "PlatformAutoRun.h"
#include "TLAutoRunLogic.h"
#include "TLRestartRecord.h"

#include "QueuedEvents.h"

#include "http/HttpNotifyManager.h"
#include "http/IHttpRequest.h"
#include "http/IHttpResponse.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QThread>

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace {

const char* const Entry = R"({"url":"https://a/","checked":true,"activeItem":true})";

class PlatformAutoRunLifeCycleTest : public TabRecordTest
{
protected:
    static void StoreInterruptedRun()
    {
        SetRecoverText(QStringLiteral(
            R"({"belongType":"merchant","tabRecoverItems":[{"routerUrl":"tl://interrupted","type":3}]})"));
    }
    static void StoreRestart()
    {
        TLRestartRecord record;
        record.routerUrls = QStringList{QStringLiteral("tl://restarted")};
        record.belongType = QStringLiteral("merchant");
        SetRestartText(record.ToText());
    }

    PlatformAutoRunLifeCycle lifeCycle;
    const QStringList opened{QStringLiteral("url https://a/"), QStringLiteral("select 1")};
};

} // namespace

TEST_F(PlatformAutoRunLifeCycleTest, DeclaresNoSignalSlotOrProperty)
{
    const QMetaObject& metaObject = PlatformAutoRunLifeCycle::staticMetaObject;
    EXPECT_STREQ(metaObject.className(), "PlatformAutoRunLifeCycle");
    EXPECT_EQ(metaObject.methodCount(), metaObject.methodOffset());
    EXPECT_EQ(metaObject.propertyCount(), metaObject.propertyOffset());
}

TEST_F(PlatformAutoRunLifeCycleTest, CreateMakesTheOpenerOnTheGuiThreadAndNothingElse)
{
    lifeCycle.MainFrameCreate();
    EXPECT_EQ(http.GetCallCount(), 0);

    // Who asks from elsewhere now gets the object that was made here.
    QThread* threadOfOpener = nullptr;
    std::thread elsewhere([&threadOfOpener] { threadOfOpener = PlatformAutoRun::Instance()->thread(); });
    elsewhere.join();
    EXPECT_EQ(threadOfOpener, QCoreApplication::instance()->thread());
}

TEST_F(PlatformAutoRunLifeCycleTest, NormalLoginWithACachedConfigurationOpensOnceOnTheQueuedAttempt)
{
    ReadConfiguration(Entry);
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    EXPECT_EQ(browser.GetCalls(), QStringList()) << "the call returns before any tab is opened";
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), opened);

    AnswerConfiguration(Entry);
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), opened) << "the attempt at the end of the read does nothing";
}

TEST_F(PlatformAutoRunLifeCycleTest, NormalLoginWithoutACacheOpensAtTheEndOfTheRead)
{
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), QStringList()) << "the queued attempt does nothing";

    AnswerConfiguration(Entry);
    EXPECT_EQ(browser.GetCalls(), QStringList()) << "not inside the notification either";
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), opened);
}

TEST_F(PlatformAutoRunLifeCycleTest, ReadThatEndsBeforeTheQueuedAttemptOpensOnce)
{
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    AnswerConfiguration(Entry);
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), opened);
}

TEST_F(PlatformAutoRunLifeCycleTest, EveryShowStartsOneUntaggedRead)
{
    lifeCycle.MainFrameShow();
    ASSERT_EQ(http.GetCallCount(), 1);
    EXPECT_TRUE(http.GetCall(0).request->GetIdentity().isEmpty());

    generalData.GetAsyncInfoManager()->SetRestart(true);
    lifeCycle.MainFrameShow();
    ASSERT_EQ(http.GetCallCount(), 2);
    EXPECT_TRUE(http.GetCall(1).request->GetIdentity().isEmpty());

    generalData.GetAsyncInfoManager()->SetRestart(false);
    lifeCycle.MainFrameShow();
    EXPECT_EQ(http.GetCallCount(), 3);
}

TEST_F(PlatformAutoRunLifeCycleTest, RestartThatAskedForItsTabsDoesNotOpenTheList)
{
    ReadConfiguration(Entry);
    generalData.GetAsyncInfoManager()->SetRestart(true);
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    RunQueuedEvents();
    AnswerConfiguration(Entry);
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), QStringList());
}

TEST_F(PlatformAutoRunLifeCycleTest, RestartThatDidNotAskForItsTabsOpensNothing)
{
    ReadConfiguration(Entry);
    generalData.GetAsyncInfoManager()->SetRestart(false);
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    RunQueuedEvents();
    AnswerConfiguration(Entry);
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), QStringList());
}

TEST_F(PlatformAutoRunLifeCycleTest, NormalLoginThatRecoversTabsOpensNoListUntilTheNextLogin)
{
    ReadConfiguration(Entry);
    StoreInterruptedRun();
    lifeCycle.MainFrameCreate();
    {
        const QuestionAnswer yes(QStringLiteral("yes_button"));
        lifeCycle.MainFrameShow();
        EXPECT_EQ(yes.GetQuestions().size(), 1);
    }
    EXPECT_EQ(routes.GetExecuted(), QStringList{QStringLiteral("tl://interrupted")});
    RunQueuedEvents();
    AnswerConfiguration(Entry);
    HttpNotifyManager::Instance()->Dispatch(10400, {}, {});
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), QStringList()) << "neither queued nor observed";

    lifeCycle.MainFrameQuit();
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), opened);
    EXPECT_EQ(routes.GetExecuted().size(), 1) << "offered once";
}

TEST_F(PlatformAutoRunLifeCycleTest, NormalLoginWhoseUserRefusesTheTabsOpensTheListOnce)
{
    StoreInterruptedRun();
    lifeCycle.MainFrameCreate();
    // The configuration is read while the user thinks: nobody observes its end yet.
    QuestionAnswer no(QStringLiteral("no_button"));
    no.SetBefore([this] { AnswerConfiguration(Entry); });
    lifeCycle.MainFrameShow();
    RunQueuedEvents();
    EXPECT_EQ(routes.GetExecuted(), QStringList());
    EXPECT_EQ(browser.GetCalls(), opened);
}

TEST_F(PlatformAutoRunLifeCycleTest, NormalLoginAfterARunOfAnotherBelongTypeOpensTheList)
{
    ReadConfiguration(Entry);
    StoreInterruptedRun();
    SetBelongTypeOfUser(QStringLiteral("supplier"));
    const QuestionAnswer yes(QStringLiteral("yes_button"));
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    RunQueuedEvents();
    EXPECT_EQ(yes.GetQuestions(), QStringList());
    EXPECT_EQ(browser.GetCalls(), opened);
}

TEST_F(PlatformAutoRunLifeCycleTest, NormalLoginClearsTheRestartRecordWithoutRestoringIt)
{
    StoreRestart();
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    EXPECT_EQ(routes.GetExecuted(), QStringList());
    EXPECT_EQ(GetRestartText(), QString());
}

TEST_F(PlatformAutoRunLifeCycleTest, RestartThatAskedForItsTabsGetsThemOnceAndOpensNoList)
{
    ReadConfiguration(Entry);
    StoreRestart();
    StoreInterruptedRun();
    const QString interrupted = GetRecoverText();
    generalData.GetAsyncInfoManager()->SetRestart(true);
    const QuestionAnswer yes(QStringLiteral("yes_button"));
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    EXPECT_EQ(routes.GetExecuted(), QStringList{QStringLiteral("tl://restarted")});
    EXPECT_EQ(GetRestartText(), QString()) << "the record serves once";
    EXPECT_EQ(GetRecoverText(), interrupted) << "recovery belongs to log-ins by hand";

    RunQueuedEvents();
    AnswerConfiguration(Entry);
    RunQueuedEvents();
    EXPECT_EQ(yes.GetQuestions(), QStringList());
    EXPECT_EQ(browser.GetCalls(), QStringList());
}

TEST_F(PlatformAutoRunLifeCycleTest, RestartThatDidNotAskForItsTabsClearsTheirRecord)
{
    StoreRestart();
    generalData.GetAsyncInfoManager()->SetRestart(false);
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    EXPECT_EQ(routes.GetExecuted(), QStringList());
    EXPECT_EQ(GetRestartText(), QString());
}

TEST_F(PlatformAutoRunLifeCycleTest, QuitLeavesNothingToRecover)
{
    StoreInterruptedRun();
    StoreRestart();
    const QString restart = GetRestartText();
    lifeCycle.MainFrameQuit();
    EXPECT_EQ(GetRecoverText(), QString());
    EXPECT_EQ(GetRestartText(), restart) << "a restart follows an orderly end";
}

TEST_F(PlatformAutoRunLifeCycleTest, SecondFinishedReadAfterTheFirstIsNotObservedAnyMore)
{
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    RunQueuedEvents();
    http.Fail(LastCall());
    RunQueuedEvents();

    ReadConfiguration(Entry); // as the settings page does
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), QStringList());
}

TEST_F(PlatformAutoRunLifeCycleTest, FailedReadOpensTheConfigurationOfAnEarlierLogin)
{
    ReadConfiguration(Entry);
    lifeCycle.MainFrameCreate();
    {
        const Provided<IBrowserMain> noBrowser(nullptr);
        lifeCycle.MainFrameShow();
        RunQueuedEvents();
    }
    http.Fail(LastCall());
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), opened);
}

TEST_F(PlatformAutoRunLifeCycleTest, WithoutABrowserAtTheQueuedAttemptTheEndOfTheReadOpens)
{
    ReadConfiguration(Entry);
    lifeCycle.MainFrameCreate();
    {
        const Provided<IBrowserMain> noBrowser(nullptr);
        lifeCycle.MainFrameShow();
        RunQueuedEvents();
    }
    EXPECT_EQ(browser.GetCalls(), QStringList());
    AnswerConfiguration(Entry);
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), opened);
}

TEST_F(PlatformAutoRunLifeCycleTest, AnotherNotificationIsIgnoredAndTheObserverStays)
{
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    RunQueuedEvents();
    // The configuration arrives behind the observer's back.
    HttpNotifyManager::Instance()->RemoveAllMessage(&lifeCycle);
    AnswerConfiguration(Entry);
    HttpNotifyManager::Instance()->AddObserver(&lifeCycle, {10400, 10401});

    HttpNotifyManager::Instance()->Dispatch(10401, {}, {});
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), QStringList());
    HttpNotifyManager::Instance()->Dispatch(10400, {}, {});
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), opened);
}

TEST_F(PlatformAutoRunLifeCycleTest, OnlyTheEndOfAReadIsObservedAfterShow)
{
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    RunQueuedEvents();
    TLAutoRunLogic::Instance()->SaveAutoRun({}, {}, {});
    http.Answer(1, "true");
    http.Answer(0, QByteArray(R"({"systemItems":[)") + Entry + "]}");
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), opened) << "the end of a write did not use up the chance";
}

TEST_F(PlatformAutoRunLifeCycleTest, NotificationDoesNotKeepRequestAndResponse)
{
    lifeCycle.MainFrameShow();
    const QPointer<QObject> request = http.GetCall(0).request.data();
    const QPointer<QObject> response = http.GetCall(0).response.data();
    http.Fail(0);
    EXPECT_TRUE(request.isNull());
    EXPECT_TRUE(response.isNull());
}

TEST_F(PlatformAutoRunLifeCycleTest, QuitLeavesTheHubAndReleasesTheOpener)
{
    lifeCycle.MainFrameCreate();
    const QPointer<PlatformAutoRun> opener = PlatformAutoRun::Instance();
    lifeCycle.MainFrameShow();
    RunQueuedEvents();
    lifeCycle.MainFrameQuit();
    EXPECT_TRUE(opener.isNull());

    AnswerConfiguration(Entry);
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), QStringList());
}

TEST_F(PlatformAutoRunLifeCycleTest, QuitBeforeTheQueuedAttemptOpensNothing)
{
    ReadConfiguration(Entry);
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    lifeCycle.MainFrameQuit();
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), QStringList());
}

TEST_F(PlatformAutoRunLifeCycleTest, NextLoginAfterQuitOpensTheListAgain)
{
    ReadConfiguration(Entry);
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    RunQueuedEvents();
    lifeCycle.MainFrameQuit();
    EXPECT_EQ(browser.GetCalls(), opened);

    FakeBrowser nextBrowser;
    const Provided<IBrowserMain> providedBrowser(&nextBrowser);
    const Provided<ITabOpener> providedOpener(&nextBrowser);
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    RunQueuedEvents();
    EXPECT_EQ(nextBrowser.GetCalls(), opened);
}

TEST_F(PlatformAutoRunLifeCycleTest, QuitWithoutShowIsHarmless)
{
    lifeCycle.MainFrameQuit();
    lifeCycle.MainFrameQuit();
    EXPECT_EQ(http.GetCallCount(), 0);
}

TEST_F(PlatformAutoRunLifeCycleTest, CloseIsNeverRefused)
{
    EXPECT_EQ(lifeCycle.BeforeClose(), BeforeCloseResult::Close);
}

#include "FakeModule.h"

#include "modules/LifeCycleDriver.h"

#include <gtest/gtest.h>

class LifeCycleDriverTest : public ::testing::Test
{
protected:
    void SetUp() override { m_driver.SetModules({m_a.AsLoaded(), m_b.AsLoaded()}); }

    void ComeUp()
    {
        m_driver.StartApp();
        m_driver.LoginSuccess();
        m_driver.GetUserInfoSuccess();
        m_driver.MainFrameCreate();
        m_driver.MainFrameShow();
        m_calls.clear();
    }
    void GoDown()
    {
        m_driver.MainFrameQuit();
        m_driver.BeforeMainFrameDestruct();
        m_driver.ExitApp();
    }
    QStringList TakeCalls()
    {
        const QStringList calls = m_calls;
        m_calls.clear();
        return calls;
    }

    QStringList m_calls;
    FakeModule m_a{QStringLiteral("a"), &m_calls};
    FakeModule m_b{QStringLiteral("b"), &m_calls};
    LifeCycleDriver m_driver;
};

TEST_F(LifeCycleDriverTest, OnTheWayUpTheFirstLoadedIsCalledFirst)
{
    m_driver.StartApp();
    m_driver.LoginSuccess();
    const QStringList expected{QStringLiteral("a StartApp"), QStringLiteral("b StartApp"),
                               QStringLiteral("a LoginSuccess"), QStringLiteral("b LoginSuccess")};
    EXPECT_EQ(TakeCalls(), expected);
}

TEST_F(LifeCycleDriverTest, OnTheWayDownTheLastLoadedIsCalledFirst)
{
    ComeUp();
    GoDown();
    const QStringList expected{QStringLiteral("b MainFrameQuit"),
                               QStringLiteral("a MainFrameQuit"),
                               QStringLiteral("b BeforeMainFrameDestruct"),
                               QStringLiteral("a BeforeMainFrameDestruct"),
                               QStringLiteral("b ExitApp"),
                               QStringLiteral("a ExitApp")};
    EXPECT_EQ(TakeCalls(), expected);
}

TEST_F(LifeCycleDriverTest, FrameIsNotShownBeforeItIsCreated)
{
    m_driver.StartApp();
    m_driver.LoginSuccess();
    m_driver.MainFrameShow();
    m_driver.GetUserInfoSuccess();
    m_driver.MainFrameShow();
    m_calls.clear();
    m_driver.MainFrameCreate();
    m_driver.MainFrameShow();
    EXPECT_EQ(TakeCalls(),
              (QStringList{QStringLiteral("a MainFrameCreate"), QStringLiteral("b MainFrameCreate"),
                           QStringLiteral("a MainFrameShow"), QStringLiteral("b MainFrameShow")}));
}

TEST_F(LifeCycleDriverTest, TellsWhichModulesHookIsRunning)
{
    QStringList running;
    m_a.during = [this, &running] { running << m_driver.GetRunningModule(); };
    m_b.during = m_a.during;
    m_driver.StartApp();
    EXPECT_EQ(running, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(m_driver.GetRunningModule(), QString());
}

TEST_F(LifeCycleDriverTest, EachHookIsCalledOnce)
{
    ComeUp();
    m_driver.MainFrameShow();
    m_driver.LoginSuccess();
    EXPECT_TRUE(TakeCalls().isEmpty());
    m_driver.LogOut();
    m_driver.LogOut();
    EXPECT_EQ(TakeCalls().size(), 2);
    GoDown();
    EXPECT_EQ(TakeCalls().size(), 6);
    GoDown();
    EXPECT_TRUE(TakeCalls().isEmpty());
}

TEST_F(LifeCycleDriverTest, EndAtTheLoginDialogTakesDownOnlyWhatCameUp)
{
    m_driver.StartApp();
    m_driver.BeforeLoginConstruct();
    m_calls.clear();
    m_driver.LogOut();
    GoDown();
    EXPECT_EQ(TakeCalls(), (QStringList{QStringLiteral("b ExitApp"), QStringLiteral("a ExitApp")}));
}

TEST_F(LifeCycleDriverTest, FrameThatWasNeverShownIsTakenDownToo)
{
    m_driver.StartApp();
    m_driver.LoginSuccess();
    m_driver.GetUserInfoSuccess();
    m_driver.MainFrameCreate();
    m_calls.clear();
    GoDown();
    EXPECT_EQ(TakeCalls().filter(QStringLiteral("MainFrameQuit")).size(), 2);
}

TEST_F(LifeCycleDriverTest, HookThatThrowsDoesNotStopTheOthers)
{
    for (const char* hook :
         {"StartApp", "MainFrameShow", "MainFrameQuit", "ExitApp", "LogOut", "BeforeClose"}) {
        m_calls.clear();
        m_a.throwsIn = QLatin1String(hook);
        m_b.throwsIn = QLatin1String(hook);
        LifeCycleDriver driver;
        driver.SetModules({m_a.AsLoaded(), m_b.AsLoaded()});
        driver.StartApp();
        driver.LoginSuccess();
        driver.GetUserInfoSuccess();
        driver.MainFrameCreate();
        driver.MainFrameShow();
        EXPECT_TRUE(driver.MayClose());
        driver.LogOut();
        driver.MainFrameQuit();
        driver.BeforeMainFrameDestruct();
        driver.ExitApp();
        EXPECT_EQ(TakeCalls().size(), 20) << hook;
    }
}

TEST_F(LifeCycleDriverTest, OneRefusalKeepsTheWindowOpenAndTheOthersUnasked)
{
    ComeUp();
    EXPECT_TRUE(m_driver.MayClose());
    m_calls.clear();
    m_a.beforeClose = BeforeCloseResult::Refuse;
    EXPECT_FALSE(m_driver.MayClose());
    EXPECT_EQ(TakeCalls(), QStringList{QStringLiteral("a BeforeClose")});
}

TEST_F(LifeCycleDriverTest, ModuleWithoutHooksIsSkipped)
{
    m_a.hasHooks = false;
    m_driver.StartApp();
    EXPECT_TRUE(m_driver.MayClose());
    EXPECT_EQ(TakeCalls(), (QStringList{QStringLiteral("b StartApp"), QStringLiteral("b BeforeClose")}));
}

TEST_F(LifeCycleDriverTest, LoginDialogMayComeTwice)
{
    m_driver.StartApp();
    m_driver.BeforeLoginConstruct();
    m_driver.BeforeLoginConstruct();
    EXPECT_EQ(TakeCalls().filter(QStringLiteral("BeforeLoginConstruct")).size(), 4);
}

TEST_F(LifeCycleDriverTest, SystemEndSkipsOnlyTheQuit)
{
    ComeUp();
    m_driver.PassOverMainFrameQuit();
    EXPECT_TRUE(TakeCalls().isEmpty());
    GoDown();
    EXPECT_EQ(TakeCalls(), (QStringList{QStringLiteral("b BeforeMainFrameDestruct"),
                                        QStringLiteral("a BeforeMainFrameDestruct"),
                                        QStringLiteral("b ExitApp"), QStringLiteral("a ExitApp")}));
}

TEST_F(LifeCycleDriverTest, SystemEndSkipsTheQuitOfAFrameThatWasNeverShown)
{
    m_driver.StartApp();
    m_driver.LoginSuccess();
    m_driver.GetUserInfoSuccess();
    m_driver.MainFrameCreate();
    m_calls.clear();
    m_driver.PassOverMainFrameQuit();
    GoDown();
    EXPECT_EQ(TakeCalls().filter(QStringLiteral("MainFrameQuit")).size(), 0);
}

TEST_F(LifeCycleDriverTest, SystemEndAtTheLoginDialogTakesDownOnlyWhatCameUp)
{
    m_driver.StartApp();
    m_calls.clear();
    m_driver.PassOverMainFrameQuit();
    m_driver.BeforeMainFrameDestruct();
    m_driver.ExitApp();
    EXPECT_EQ(TakeCalls(), (QStringList{QStringLiteral("b ExitApp"), QStringLiteral("a ExitApp")}));
}

TEST_F(LifeCycleDriverTest, PassingOverAfterTheQuitChangesNothing)
{
    ComeUp();
    m_driver.MainFrameQuit();
    m_calls.clear();
    m_driver.PassOverMainFrameQuit();
    m_driver.BeforeMainFrameDestruct();
    EXPECT_EQ(TakeCalls().size(), 2);
}

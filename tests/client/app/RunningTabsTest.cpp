#include "KeptTabsExamples.h"
#include "QueuedEvents.h"
#include "UserStore.h"
#include "WaitUntil.h"

#include "app/tabs/KeptTabsText.h"
#include "app/tabs/RunningTabs.h"

#include <QtCore/QSemaphore>
#include <QtCore/QThreadPool>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using KeptTabsExamples::MakeTabs;

class RunningTabsTest : public ::testing::Test
{
protected:
    /// A place in the pool's queue where its one thread stays until the test lets it go on.
    struct Gate
    {
        QSemaphore reached;
        QSemaphore open;
    };

    RunningTabsTest() { QThreadPool::globalInstance()->setMaxThreadCount(1); }
    ~RunningTabsTest() override
    {
        for (const std::shared_ptr<Gate>& gate : m_gates) {
            gate->open.release();
        }
        QThreadPool::globalInstance()->waitForDone();
        QThreadPool::globalInstance()->setMaxThreadCount(m_threads);
    }

    /// What is begun from now on waits until the gate is opened.
    Gate* CloseGate()
    {
        auto gate = std::make_shared<Gate>();
        QThreadPool::globalInstance()->start([gate] {
            gate->reached.release();
            gate->open.acquire();
        });
        m_gates.push_back(gate);
        return gate.get();
    }
    static void FinishEverything()
    {
        QThreadPool::globalInstance()->waitForDone();
        RunQueuedEvents();
        QThreadPool::globalInstance()->waitForDone();
        RunQueuedEvents();
    }
    static QString TextOf(int count) { return KeptTabsText::Write(MakeTabs(count)); }

    UserStore m_store;
    RunningTabs m_running;

private:
    int m_threads = QThreadPool::globalInstance()->maxThreadCount();
    std::vector<std::shared_ptr<Gate>> m_gates;
};

TEST_F(RunningTabsTest, NothingIsKeptToBeginWith)
{
    EXPECT_EQ(RunningTabs::GetText(), QString());
}

TEST_F(RunningTabsTest, KeepLeavesTheTextToAnotherThread)
{
    Gate* const gate = CloseGate();
    m_running.Keep(MakeTabs(3));
    RunQueuedEvents();
    EXPECT_EQ(RunningTabs::GetText(), QString()) << "it was written on this thread";
    gate->open.release();
    ASSERT_TRUE(WaitUntil([] { return !RunningTabs::GetText().isEmpty(); }));
    EXPECT_EQ(RunningTabs::GetText(), TextOf(3));
}

TEST_F(RunningTabsTest, OfSeveralThatWaitOnlyTheLastIsWritten)
{
    Gate* const first = CloseGate();
    m_running.Keep(MakeTabs(1));
    Gate* const second = CloseGate();
    m_running.Keep(MakeTabs(2));
    m_running.Keep(MakeTabs(3));
    m_running.Keep(MakeTabs(4));
    first->open.release();
    ASSERT_TRUE(WaitUntil([] { return !RunningTabs::GetText().isEmpty(); }));
    EXPECT_EQ(RunningTabs::GetText(), TextOf(1));
    // Whatever came after the next text would have to wait here.
    CloseGate();
    second->open.release();
    ASSERT_TRUE(WaitUntil([] { return RunningTabs::GetText() != TextOf(1); }));
    EXPECT_EQ(RunningTabs::GetText(), TextOf(4));
}

TEST_F(RunningTabsTest, WhileOneIsBeingWrittenNoOtherIsBegun)
{
    Gate* const first = CloseGate();
    m_running.Keep(MakeTabs(1));
    m_running.Keep(MakeTabs(2));
    Gate* const behind = CloseGate();
    m_running.Keep(MakeTabs(3));
    first->open.release();
    ASSERT_TRUE(behind->reached.tryAcquire(1, 20000));
    RunQueuedEvents();
    EXPECT_EQ(RunningTabs::GetText(), TextOf(1)) << "the second one did not wait";
    behind->open.release();
    ASSERT_TRUE(WaitUntil([] { return RunningTabs::GetText() == TextOf(3); }));
}

TEST_F(RunningTabsTest, OneThatIsKeptNowOvertakesThoseThatWait)
{
    Gate* const gate = CloseGate();
    m_running.Keep(MakeTabs(1));
    m_running.Keep(MakeTabs(2));
    m_running.KeepNow(MakeTabs(3));
    EXPECT_EQ(RunningTabs::GetText(), TextOf(3));
    gate->open.release();
    FinishEverything();
    EXPECT_EQ(RunningTabs::GetText(), TextOf(3)) << "an older one came later";
}

TEST_F(RunningTabsTest, ClearedStaysClear)
{
    m_running.KeepNow(MakeTabs(1));
    Gate* const gate = CloseGate();
    m_running.Keep(MakeTabs(2));
    m_running.Keep(MakeTabs(3));
    m_running.Clear();
    EXPECT_EQ(RunningTabs::GetText(), QString());
    gate->open.release();
    FinishEverything();
    EXPECT_EQ(RunningTabs::GetText(), QString());
}

TEST_F(RunningTabsTest, AfterOneThatWasOvertakenTheNextIsWritten)
{
    Gate* const gate = CloseGate();
    m_running.Keep(MakeTabs(1));
    m_running.KeepNow(MakeTabs(2));
    m_running.Keep(MakeTabs(3));
    gate->open.release();
    ASSERT_TRUE(WaitUntil([] { return RunningTabs::GetText() != TextOf(2); }));
    EXPECT_EQ(RunningTabs::GetText(), TextOf(3));
}

TEST_F(RunningTabsTest, SameTabsAreWrittenOnce)
{
    KeptTabs tabs = MakeTabs(3);
    m_running.Keep(tabs);
    FinishEverything();
    tabs.when = tabs.when.addSecs(60);
    m_running.Keep(tabs);
    FinishEverything();
    EXPECT_EQ(RunningTabs::GetText(), TextOf(3));
    tabs.current = 0;
    m_running.Keep(tabs);
    FinishEverything();
    EXPECT_EQ(RunningTabs::GetText(), KeptTabsText::Write(tabs)) << "another one is in front";
    tabs.tabs[1].title += QLatin1Char('!');
    m_running.Keep(tabs);
    FinishEverything();
    EXPECT_EQ(RunningTabs::GetText(), KeptTabsText::Write(tabs));
}

TEST_F(RunningTabsTest, SameTabsAreWrittenAgainAfterTheyWereCleared)
{
    m_running.Keep(MakeTabs(3));
    FinishEverything();
    m_running.Clear();
    m_running.Keep(MakeTabs(3));
    FinishEverything();
    EXPECT_EQ(RunningTabs::GetText(), TextOf(3));
}

TEST_F(RunningTabsTest, NoTabsClearWhatWasKept)
{
    m_running.KeepNow(MakeTabs(1));
    m_running.Keep(MakeTabs(0));
    ASSERT_TRUE(WaitUntil([] { return RunningTabs::GetText().isEmpty(); }));
}

TEST_F(RunningTabsTest, EndWhileOneIsBeingWrittenIsHarmless)
{
    const KeptTabs many = MakeTabs(1000);
    for (int round = 0; round < 8; ++round) {
        auto running = std::make_unique<RunningTabs>();
        Gate* const gate = CloseGate();
        running->Keep(many);
        running->Keep(MakeTabs(1));
        gate->open.release();
        running.reset();
        EXPECT_EQ(QThreadPool::globalInstance()->activeThreadCount(), 0) << "a thread may still answer it";
        FinishEverything();
    }
}

TEST_F(RunningTabsTest, EachUserHasTheirOwn)
{
    m_running.KeepNow(MakeTabs(1));
    UserStore::SignIn(QStringLiteral("other"));
    EXPECT_EQ(RunningTabs::GetText(), QString());
    m_running.KeepNow(MakeTabs(2));
    UserStore::SignIn(QStringLiteral("demo"));
    EXPECT_EQ(RunningTabs::GetText(), TextOf(1));
}

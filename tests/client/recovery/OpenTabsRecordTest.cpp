#include "QueuedEvents.h"
#include "TabSetExamples.h"
#include "UserStore.h"
#include "WaitUntil.h"

#include "TabSetText.h"
#include "recovery/OpenTabsRecord.h"

#include <QtCore/QSemaphore>
#include <QtCore/QThreadPool>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using TabSetExamples::MakeTabs;

class OpenTabsRecordTest : public ::testing::Test
{
protected:
    /// A place in the pool's queue where its only thread waits until the test lets it go on.
    struct Gate
    {
        QSemaphore reached;
        QSemaphore open;
    };

    OpenTabsRecordTest() { m_thread.setMaxThreadCount(1); }
    ~OpenTabsRecordTest() override
    {
        for (const std::shared_ptr<Gate>& gate : m_gates) {
            gate->open.release();
        }
        m_thread.waitForDone();
    }

    /// Whatever starts from now on waits until the gate opens.
    Gate* CloseGate()
    {
        auto gate = std::make_shared<Gate>();
        m_thread.start([gate] {
            gate->reached.release();
            gate->open.acquire();
        });
        m_gates.push_back(gate);
        return gate.get();
    }
    void FinishEverything()
    {
        m_thread.waitForDone();
        RunQueuedEvents();
        m_thread.waitForDone();
        RunQueuedEvents();
    }
    static QString TextOf(int count) { return TabSetText::Write(MakeTabs(count)); }

    UserStore m_store;
    QThreadPool m_thread;
    OpenTabsRecord m_running{&m_thread};

private:
    std::vector<std::shared_ptr<Gate>> m_gates;
};

TEST_F(OpenTabsRecordTest, NothingIsKeptToBeginWith)
{
    EXPECT_EQ(OpenTabsRecord::GetText(), QString());
}

TEST_F(OpenTabsRecordTest, KeepLeavesTheTextToAnotherThread)
{
    Gate* const gate = CloseGate();
    m_running.Keep(MakeTabs(3));
    RunQueuedEvents();
    EXPECT_EQ(OpenTabsRecord::GetText(), QString()) << "it was written on this thread";
    gate->open.release();
    ASSERT_TRUE(WaitUntil([] { return !OpenTabsRecord::GetText().isEmpty(); }));
    EXPECT_EQ(OpenTabsRecord::GetText(), TextOf(3));
}

TEST_F(OpenTabsRecordTest, OfSeveralThatWaitOnlyTheLastIsWritten)
{
    Gate* const first = CloseGate();
    m_running.Keep(MakeTabs(1));
    Gate* const second = CloseGate();
    m_running.Keep(MakeTabs(2));
    m_running.Keep(MakeTabs(3));
    m_running.Keep(MakeTabs(4));
    first->open.release();
    ASSERT_TRUE(WaitUntil([] { return !OpenTabsRecord::GetText().isEmpty(); }));
    EXPECT_EQ(OpenTabsRecord::GetText(), TextOf(1));
    // Anything after the next text would have to wait here.
    CloseGate();
    second->open.release();
    ASSERT_TRUE(WaitUntil([] { return OpenTabsRecord::GetText() != TextOf(1); }));
    EXPECT_EQ(OpenTabsRecord::GetText(), TextOf(4));
}

TEST_F(OpenTabsRecordTest, WhileOneIsBeingWrittenNoOtherIsBegun)
{
    Gate* const first = CloseGate();
    m_running.Keep(MakeTabs(1));
    m_running.Keep(MakeTabs(2));
    Gate* const behind = CloseGate();
    m_running.Keep(MakeTabs(3));
    first->open.release();
    ASSERT_TRUE(behind->reached.tryAcquire(1, 20000));
    RunQueuedEvents();
    EXPECT_EQ(OpenTabsRecord::GetText(), TextOf(1)) << "the second one did not wait";
    behind->open.release();
    ASSERT_TRUE(WaitUntil([] { return OpenTabsRecord::GetText() == TextOf(3); }));
}

TEST_F(OpenTabsRecordTest, OneThatIsKeptNowOvertakesThoseThatWait)
{
    Gate* const gate = CloseGate();
    m_running.Keep(MakeTabs(1));
    m_running.Keep(MakeTabs(2));
    m_running.KeepNow(MakeTabs(3));
    EXPECT_EQ(OpenTabsRecord::GetText(), TextOf(3));
    gate->open.release();
    FinishEverything();
    EXPECT_EQ(OpenTabsRecord::GetText(), TextOf(3)) << "an older one came later";
}

TEST_F(OpenTabsRecordTest, ClearedStaysClear)
{
    m_running.KeepNow(MakeTabs(1));
    Gate* const gate = CloseGate();
    m_running.Keep(MakeTabs(2));
    m_running.Keep(MakeTabs(3));
    m_running.Clear();
    EXPECT_EQ(OpenTabsRecord::GetText(), QString());
    gate->open.release();
    FinishEverything();
    EXPECT_EQ(OpenTabsRecord::GetText(), QString());
}

TEST_F(OpenTabsRecordTest, AfterOneThatWasOvertakenTheNextIsWritten)
{
    Gate* const gate = CloseGate();
    m_running.Keep(MakeTabs(1));
    m_running.KeepNow(MakeTabs(2));
    m_running.Keep(MakeTabs(3));
    gate->open.release();
    ASSERT_TRUE(WaitUntil([] { return OpenTabsRecord::GetText() != TextOf(2); }));
    EXPECT_EQ(OpenTabsRecord::GetText(), TextOf(3));
}

TEST_F(OpenTabsRecordTest, SameTabsAreWrittenOnce)
{
    TabSet tabs = MakeTabs(3);
    m_running.Keep(tabs);
    FinishEverything();
    tabs.when = tabs.when.addSecs(60);
    m_running.Keep(tabs);
    FinishEverything();
    EXPECT_EQ(OpenTabsRecord::GetText(), TextOf(3));
    tabs.current = 0;
    m_running.Keep(tabs);
    FinishEverything();
    EXPECT_EQ(OpenTabsRecord::GetText(), TabSetText::Write(tabs)) << "another one is in front";
    tabs.tabs[1].title += QLatin1Char('!');
    m_running.Keep(tabs);
    FinishEverything();
    EXPECT_EQ(OpenTabsRecord::GetText(), TabSetText::Write(tabs));
}

TEST_F(OpenTabsRecordTest, SameTabsAreWrittenAgainAfterTheyWereCleared)
{
    m_running.Keep(MakeTabs(3));
    FinishEverything();
    m_running.Clear();
    m_running.Keep(MakeTabs(3));
    FinishEverything();
    EXPECT_EQ(OpenTabsRecord::GetText(), TextOf(3));
}

TEST_F(OpenTabsRecordTest, NoTabsClearWhatWasKept)
{
    m_running.KeepNow(MakeTabs(1));
    m_running.Keep(MakeTabs(0));
    ASSERT_TRUE(WaitUntil([] { return OpenTabsRecord::GetText().isEmpty(); }));
}

TEST_F(OpenTabsRecordTest, EndWhileOneIsBeingWrittenIsHarmless)
{
    const TabSet many = MakeTabs(1000);
    for (int round = 0; round < 8; ++round) {
        auto running = std::make_unique<OpenTabsRecord>(&m_thread);
        Gate* const gate = CloseGate();
        running->Keep(many);
        running->Keep(MakeTabs(1));
        gate->open.release();
        running.reset();
        EXPECT_EQ(m_thread.activeThreadCount(), 0) << "a thread may still answer it";
        FinishEverything();
    }
}

TEST_F(OpenTabsRecordTest, EachUserHasTheirOwn)
{
    m_running.KeepNow(MakeTabs(1));
    UserStore::SignIn(QStringLiteral("other"));
    EXPECT_EQ(OpenTabsRecord::GetText(), QString());
    m_running.KeepNow(MakeTabs(2));
    UserStore::SignIn(QStringLiteral("demo"));
    EXPECT_EQ(OpenTabsRecord::GetText(), TextOf(1));
}

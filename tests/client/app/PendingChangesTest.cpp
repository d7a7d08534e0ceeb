#include "PendingChanges.h"

#include "WaitUntil.h"

#include <gtest/gtest.h>

class PendingChangesTest : public ::testing::Test
{
protected:
    void Wait(int limit = 60000)
    {
        m_changes.WaitThen(limit, [this] { ++m_calls; });
    }

    bool m_busy = true;
    int m_calls = 0;
    PendingChanges m_changes{[this] { return m_busy; }};
};

TEST_F(PendingChangesTest, WithoutAnyTheActionComesImmediately)
{
    m_busy = false;
    Wait();
    EXPECT_EQ(m_calls, 1);
}

TEST_F(PendingChangesTest, ActionComesWhenTheLastOneIsAnswered)
{
    Wait();
    m_changes.Check();
    m_busy = false;
    EXPECT_EQ(m_calls, 0);
    m_changes.Check();
    EXPECT_EQ(m_calls, 0) << "the end of a call may start another";
    EXPECT_TRUE(WaitUntil([this] { return m_calls == 1; }));
    m_changes.Check();
    m_changes.Check();
    EXPECT_FALSE(WaitUntil([this] { return m_calls > 1; }, 50));
}

TEST_F(PendingChangesTest, ACallThatStartsAnotherIsWaitedForWithIt)
{
    Wait();
    m_busy = false;
    m_changes.Check();
    m_busy = true; // its completion sent another call
    EXPECT_FALSE(WaitUntil([this] { return m_calls > 0; }, 50));
    m_busy = false;
    m_changes.Check();
    EXPECT_TRUE(WaitUntil([this] { return m_calls == 1; }));
}

TEST_F(PendingChangesTest, ActionComesAfterTheLimitWhateverIsOnItsWay)
{
    Wait(1);
    EXPECT_TRUE(WaitUntil([this] { return m_calls == 1; }));
    m_busy = false;
    m_changes.Check();
    EXPECT_EQ(m_calls, 1);
}

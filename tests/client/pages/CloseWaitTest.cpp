#include "pages/CloseWait.h"

#include "WaitUntil.h"

#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

namespace {

class CloseWaitTest : public ::testing::Test
{
protected:
    bool m_isUserAsked = false;
    int m_ticks = 0;
    CloseWait m_wait{[this] {
                         ++m_ticks;
                         return m_isUserAsked;
                     },
                     1};
    QSignalSpy m_expired{&m_wait, &CloseWait::SigExpired};
};

} // namespace

TEST_F(CloseWaitTest, APageThatSaysNothingIsWaitedForOnce)
{
    m_wait.Begin();
    EXPECT_TRUE(m_wait.IsRunning());
    ASSERT_TRUE(WaitUntil([this] { return !m_expired.isEmpty(); }));
    EXPECT_EQ(m_ticks, CloseWait::Ticks);
    EXPECT_FALSE(m_wait.IsRunning());
}

TEST_F(CloseWaitTest, APageThatAnswersIsNotWaitedFor)
{
    m_wait.Begin();
    ASSERT_TRUE(WaitUntil([this] { return m_ticks > 0; }));
    m_wait.End();
    EXPECT_FALSE(m_wait.IsRunning());
    EXPECT_TRUE(m_expired.isEmpty());
}

TEST_F(CloseWaitTest, TheUserMayTakeTheirTime)
{
    m_isUserAsked = true;
    m_wait.Begin();
    ASSERT_TRUE(WaitUntil([this] { return m_ticks > 3 * CloseWait::Ticks; }));
    EXPECT_TRUE(m_expired.isEmpty());

    m_isUserAsked = false;
    const int answered = m_ticks;
    ASSERT_TRUE(WaitUntil([this] { return !m_expired.isEmpty(); }));
    EXPECT_EQ(m_ticks, answered + CloseWait::Ticks) << "the page has all of its time after the answer";
}

TEST_F(CloseWaitTest, AnotherWaitHasAllOfItsTime)
{
    m_wait.Begin();
    ASSERT_TRUE(WaitUntil([this] { return m_ticks >= CloseWait::Ticks / 2; }));
    m_wait.End();
    m_ticks = 0;
    m_wait.Begin();
    ASSERT_TRUE(WaitUntil([this] { return !m_expired.isEmpty(); }));
    EXPECT_EQ(m_ticks, CloseWait::Ticks);
}

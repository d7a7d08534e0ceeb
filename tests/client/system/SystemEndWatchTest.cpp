#include "system/SystemEndWatch.h"

#include "WaitUntil.h"

#include <QtGui/QGuiApplication>
#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include <csignal>
#endif

TEST(SystemEndWatchTest, NoWindowIsAskedWhetherTheSessionMayEnd)
{
    const SystemEndWatch watch;
    EXPECT_FALSE(QGuiApplication::isFallbackSessionManagementEnabled())
        << "a window that stays open would stop the shutdown of the machine";
}

#ifdef Q_OS_UNIX
TEST(SystemEndWatchTest, SignalsThatEndTheClientAreReported)
{
    SystemEndWatch watch;
    QSignalSpy ends(&watch, &SystemEndWatch::SigSystemEnd);
    QSignalSpy plans(&watch, &SystemEndWatch::SigSystemEndPlanned);
    std::raise(SIGTERM);
    ASSERT_TRUE(WaitUntil([&ends] { return ends.size() == 1; }));
    std::raise(SIGHUP);
    ASSERT_TRUE(WaitUntil([&ends] { return ends.size() == 2; }));
    EXPECT_TRUE(plans.isEmpty());
}
#endif

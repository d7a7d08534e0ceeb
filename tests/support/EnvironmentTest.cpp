#include <QtCore/QByteArray>

#include <gtest/gtest.h>

// A list of variables is a list of lists on its way to a test, and has lost all but its first before.

TEST(TestEnvironment, HasAHomeOfItsOwn)
{
    const QByteArray home = "/tests/home/TLTestEnvironmentTests";
    EXPECT_TRUE(qgetenv("XDG_CONFIG_HOME").endsWith(home + "/.config"));
#ifndef Q_OS_WIN // where Wine keeps it to itself
    EXPECT_TRUE(qgetenv("HOME").endsWith(home)) << qgetenv("HOME").constData();
#endif
}

TEST(TestEnvironment, IsTheSameEverywhere)
{
    EXPECT_EQ(qgetenv("LC_ALL"), "C.UTF-8");
    EXPECT_EQ(qgetenv("TZ"), "UTC");
}

TEST(TestEnvironment, TakesWhatAProgramAddsToIt)
{
    EXPECT_EQ(qgetenv("TL_ADDED"), "yes");
}

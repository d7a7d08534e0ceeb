#include <QtCore/QByteArray>

#include <gtest/gtest.h>

// A list of variables is a list of lists on its way to a test, and has lost all but its first before.

TEST(TestEnvironment, HasAHomeOfItsOwn)
{
    EXPECT_TRUE(qgetenv("HOME").endsWith("/tests/home/TLTestEnvironmentTests"))
        << qgetenv("HOME").constData();
    EXPECT_EQ(qgetenv("XDG_CONFIG_HOME"), qgetenv("HOME") + "/.config");
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

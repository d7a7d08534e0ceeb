#include <QtCore/QByteArray>

#include <gtest/gtest.h>

// CMake passes the variables on as a list within a list, which once lost all but the first.

TEST(EnvironmentTest, HasAHomeOfItsOwn)
{
    const QByteArray home = "/tests/home/TLTestEnvironmentTests";
    EXPECT_TRUE(qgetenv("XDG_CONFIG_HOME").endsWith(home + "/.config"));
#ifndef Q_OS_WIN // Wine does not pass it on
    EXPECT_TRUE(qgetenv("HOME").endsWith(home)) << qgetenv("HOME").constData();
#endif
}

TEST(EnvironmentTest, IsTheSameEverywhere)
{
    EXPECT_EQ(qgetenv("LC_ALL"), "C.UTF-8");
    EXPECT_EQ(qgetenv("TZ"), "UTC");
}

TEST(EnvironmentTest, HasWhatAProgramAddsToIt)
{
    EXPECT_EQ(qgetenv("TL_ADDED"), "yes");
}

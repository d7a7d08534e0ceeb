#include "base/DpiTool.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double UsualDpi =
#ifdef Q_OS_MACOS
    72;
#else
    96;
#endif

class DpiToolTest : public ::testing::Test
{
protected:
    ~DpiToolTest() override
    {
        DpiTool::SetScale(1);
        DpiTool::SetScreenDpi(UsualDpi);
    }
};

TEST_F(DpiToolTest, NothingIsScaledAtFirst)
{
    EXPECT_EQ(DpiTool::GetScale(), 1.0);
    EXPECT_EQ(DpiTool::ScaleDefault(388), 388);
}

TEST_F(DpiToolTest, ScalesByWhatTheUserChose)
{
    DpiTool::SetScale(1.25);
    EXPECT_EQ(DpiTool::ScaleDefault(16), 20);
    DpiTool::SetScale(1.5);
    EXPECT_EQ(DpiTool::ScaleDefault(16), 24);
    DpiTool::SetScale(2);
    EXPECT_EQ(DpiTool::ScaleDefault(16), 32);
    DpiTool::SetScale(1);
    EXPECT_EQ(DpiTool::ScaleDefault(16), 16);
}

TEST_F(DpiToolTest, ASixteenthOfAnIconIsFourAtEveryScaleOfTheMenu)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        DpiTool::SetScale(scale);
        EXPECT_EQ(DpiTool::ScaleDefault(16) / DpiTool::ScaleDefault(4), 4) << scale;
    }
}

TEST_F(DpiToolTest, RoundsToTheNearestAndAHalfAwayFromZero)
{
    DpiTool::SetScale(1.25);
    EXPECT_EQ(DpiTool::ScaleDefault(1), 1);
    EXPECT_EQ(DpiTool::ScaleDefault(2), 3);
    EXPECT_EQ(DpiTool::ScaleDefault(3), 4);
    EXPECT_EQ(DpiTool::ScaleDefault(-2), -3);
    EXPECT_EQ(DpiTool::ScaleDefault(0), 0);
}

TEST_F(DpiToolTest, TheLargestNumbersStayWhatTheyAre)
{
    DpiTool::SetScale(2);
    EXPECT_EQ(DpiTool::ScaleDefault(std::numeric_limits<int>::max()), std::numeric_limits<int>::max());
    EXPECT_EQ(DpiTool::ScaleDefault(std::numeric_limits<int>::min()), std::numeric_limits<int>::min());
}

TEST_F(DpiToolTest, AChoiceOutsideTheRangeIsBroughtIntoIt)
{
    DpiTool::SetScale(1000);
    EXPECT_EQ(DpiTool::GetScale(), 4.0);
    DpiTool::SetScale(std::numeric_limits<double>::infinity());
    EXPECT_EQ(DpiTool::GetScale(), 4.0);
    DpiTool::SetScale(0);
    EXPECT_EQ(DpiTool::GetScale(), 0.5);
    DpiTool::SetScale(-3);
    EXPECT_EQ(DpiTool::GetScale(), 0.5);
}

TEST_F(DpiToolTest, WhatIsNoNumberChangesNothing)
{
    DpiTool::SetScale(1.5);
    DpiTool::SetScale(std::nan(""));
    DpiTool::SetScreenDpi(std::nan(""));
    EXPECT_EQ(DpiTool::GetScale(), 1.5);
}

TEST_F(DpiToolTest, TheScreenAndTheUserCountTogether)
{
    DpiTool::SetScreenDpi(UsualDpi * 1.5);
    EXPECT_EQ(DpiTool::GetScale(), 1.5);
    DpiTool::SetScale(2);
    EXPECT_EQ(DpiTool::GetScale(), 3.0);
    DpiTool::SetScreenDpi(UsualDpi);
    EXPECT_EQ(DpiTool::GetScale(), 2.0);
}

TEST_F(DpiToolTest, AScreenCountsInQuarters)
{
    DpiTool::SetScreenDpi(UsualDpi * 1.05);
    EXPECT_EQ(DpiTool::GetScale(), 1.0);
    DpiTool::SetScreenDpi(UsualDpi * 1.2);
    EXPECT_EQ(DpiTool::GetScale(), 1.25);
}

TEST_F(DpiToolTest, AScreenThatReportsNonsenseCountsAsTheNearestPossible)
{
    for (const double dpi : {0.0, -96.0, 40.0}) {
        DpiTool::SetScreenDpi(dpi);
        EXPECT_EQ(DpiTool::GetScale(), 1.0) << dpi;
    }
    DpiTool::SetScreenDpi(1e300);
    EXPECT_EQ(DpiTool::GetScale(), 4.0);
}

} // namespace

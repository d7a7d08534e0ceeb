#include "ZoomSteps.h"

#include <gtest/gtest.h>

TEST(ZoomStepsTest, GoesThroughTheStepsAndEndsAtTheLast)
{
    double zoom = ZoomSteps::ActualSize;
    zoom = ZoomSteps::GetLarger(zoom);
    EXPECT_DOUBLE_EQ(zoom, 1.1);
    zoom = ZoomSteps::GetSmaller(ZoomSteps::GetSmaller(zoom));
    EXPECT_DOUBLE_EQ(zoom, 0.9);
    EXPECT_DOUBLE_EQ(ZoomSteps::GetLarger(5.0), 5.0);
    EXPECT_DOUBLE_EQ(ZoomSteps::GetSmaller(0.25), 0.25);
}

TEST(ZoomStepsTest, AFactorBetweenTwoStepsGoesToTheNext)
{
    EXPECT_DOUBLE_EQ(ZoomSteps::GetLarger(1.3), 1.5);
    EXPECT_DOUBLE_EQ(ZoomSteps::GetSmaller(1.3), 1.25);
    EXPECT_DOUBLE_EQ(ZoomSteps::GetLarger(0.6699), 0.75) << "0.67, as an engine rounds it, is 0.67";
    EXPECT_DOUBLE_EQ(ZoomSteps::GetSmaller(0.6701), 0.5);
}

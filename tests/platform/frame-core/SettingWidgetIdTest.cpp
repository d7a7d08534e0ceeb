#include "frame-core/SettingWidgetId.h"

#include <gtest/gtest.h>

namespace {

TEST(SettingWidgetIdTest, BothNumbersCount)
{
    EXPECT_EQ(SettingWidgetId(10, 60), SettingWidgetId(10, 60));
    EXPECT_NE(SettingWidgetId(10, 60), SettingWidgetId(60, 10));
    EXPECT_NE(SettingWidgetId(10, 60), SettingWidgetId(10, 61));
    EXPECT_NE(SettingWidgetId(10, 60), SettingWidgetId(11, 60));
    EXPECT_EQ(SettingWidgetId().GetGroup(), 0);
    EXPECT_EQ(SettingWidgetId().GetOrder(), 0);
    EXPECT_NE(qHash(SettingWidgetId(10, 60)), qHash(SettingWidgetId(60, 10)));
}

TEST(SettingWidgetIdTest, PagesAreOrderedByGroupAndThenByPlace)
{
    EXPECT_LT(SettingWidgetId(1, 99), SettingWidgetId(2, 0));
    EXPECT_LT(SettingWidgetId(2, 0), SettingWidgetId(2, 1));
    EXPECT_LT(SettingWidgetId(-1, 0), SettingWidgetId(0, -1));
    EXPECT_FALSE(SettingWidgetId(2, 1) < SettingWidgetId(2, 1));
}

} // namespace

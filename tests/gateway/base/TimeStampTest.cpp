#include "base/TimeStamp.h"

#include <gtest/gtest.h>

namespace TLGateway {

TEST(TimeStampTest, KnownMoments)
{
    EXPECT_EQ(ParseTimeStamp("1970-01-01 00:00:00"), 0);
    EXPECT_EQ(ParseTimeStamp("2000-02-29 23:59:59"), 951868799);
    EXPECT_EQ(ParseTimeStamp("2026-12-21 08:00:00"), 1797840000);
    EXPECT_EQ(ParseTimeStamp("1969-12-31 23:59:59"), -1);
}

TEST(TimeStampTest, WritesWhatItReads)
{
    for (const char* text :
         {"1970-01-01 00:00:00", "2000-02-29 23:59:59", "2026-12-31 00:00:01", "1969-12-31 23:59:59",
          "0000-01-01 00:00:00", "9999-12-31 23:59:59", "2100-03-01 12:00:00"}) {
        const auto time = ParseTimeStamp(text);
        ASSERT_TRUE(time) << text;
        EXPECT_EQ(FormatTimeStamp(*time), text);
    }
}

TEST(TimeStampTest, OtherFormsAreRefused)
{
    for (const char* text : {"", "2026-12-21", "2026-12-21T08:00:00", "2026-12-21 08:00:00Z",
                             "2026-12-21 8:00:00", " 2026-12-21 08:00:0", "2026/12/21 08:00:00",
                             "+026-12-21 08:00:00", "2026-12-21 08-00-00", "2026-12-21  8:00:00"}) {
        EXPECT_FALSE(ParseTimeStamp(text)) << text;
    }
}

TEST(TimeStampTest, FieldsOutOfRangeAreRefused)
{
    for (const char* text : {"2026-00-21 08:00:00", "2026-13-21 08:00:00", "2026-12-00 08:00:00",
                             "2026-12-32 08:00:00", "2026-02-29 08:00:00", "2100-02-29 08:00:00",
                             "2026-12-21 24:00:00", "2026-12-21 08:60:00", "2026-12-21 08:00:60"}) {
        EXPECT_FALSE(ParseTimeStamp(text)) << text;
    }
}

TEST(TimeStampTest, TimesBeyondTheFormAreClamped)
{
    EXPECT_EQ(FormatTimeStamp(INT64_MAX), "9999-12-31 23:59:59");
    EXPECT_EQ(FormatTimeStamp(INT64_MIN), "0000-01-01 00:00:00");
}

} // namespace TLGateway

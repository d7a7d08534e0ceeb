#include "base/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace TLGateway {

TEST(Utf8Test, WellFormedTextOfEveryLength)
{
    EXPECT_TRUE(IsValidUtf8(""));
    EXPECT_TRUE(IsValidUtf8("plain"));
    EXPECT_TRUE(IsValidUtf8("\xC3\xA4 \xE8\xAE\xA2 \xF0\x9F\x98\x80"));
    EXPECT_TRUE(IsValidUtf8("\xF4\x8F\xBF\xBF"));
    EXPECT_TRUE(IsValidUtf8(std::string("a\0b", 3)));
}

TEST(Utf8Test, BrokenSequences)
{
    EXPECT_FALSE(IsValidUtf8("\x80")) << "continuation without a lead";
    EXPECT_FALSE(IsValidUtf8("\xC3")) << "cut after the lead";
    EXPECT_FALSE(IsValidUtf8("\xE8\xAE")) << "cut after two of three bytes";
    EXPECT_FALSE(IsValidUtf8("\xF0\x9F\x98")) << "cut after three of four bytes";
    EXPECT_FALSE(IsValidUtf8("\xC3(")) << "lead without continuation";
    EXPECT_FALSE(IsValidUtf8("\xFF")) << "never a byte of UTF-8";
}

TEST(Utf8Test, OverlongFormsSurrogatesAndBeyondUnicode)
{
    EXPECT_FALSE(IsValidUtf8("\xC0\xAF"));
    EXPECT_FALSE(IsValidUtf8("\xE0\x80\xAF"));
    EXPECT_FALSE(IsValidUtf8("\xF0\x80\x80\xAF"));
    EXPECT_FALSE(IsValidUtf8("\xED\xA0\x80"));
    EXPECT_FALSE(IsValidUtf8("\xF4\x90\x80\x80"));
    EXPECT_FALSE(IsValidUtf8("\xF5\x80\x80\x80"));
}

TEST(Utf8Test, CountsCodePointsNotBytes)
{
    EXPECT_EQ(CountCodePoints(""), 0U);
    EXPECT_EQ(CountCodePoints("a\xC3\xA4\xE8\xAE\xA2\xF0\x9F\x98\x80"), 4U);
}

TEST(QuotedTest, CannotBreakTheLineOrLeaveTheQuotes)
{
    EXPECT_EQ(Quoted("a\nb\"c\\d\x7F"), "\"a\\x0ab\\\"c\\\\d\\x7f\"");
}

TEST(QuotedTest, EscapesBytesThatAreNoUtf8AndTheUpperControls)
{
    EXPECT_EQ(Quoted("x\xFFy"), "\"x\\xffy\"");
    EXPECT_EQ(Quoted("\xC2\x85"), "\"\\xc2\\x85\"");
    EXPECT_EQ(Quoted("\xE8\xAE\xA2"), "\"\xE8\xAE\xA2\"");
}

TEST(QuotedTest, CutsLongText)
{
    EXPECT_EQ(Quoted(std::string(100000, 'x')), "\"" + std::string(64, 'x') + "...\"");
    EXPECT_EQ(Quoted(std::string(64, 'x')), "\"" + std::string(64, 'x') + "\"");
}

TEST(Base64UrlTest, KnownValuesWithoutPadding)
{
    EXPECT_EQ(ToBase64Url(""), "");
    EXPECT_EQ(ToBase64Url("f"), "Zg");
    EXPECT_EQ(ToBase64Url("fo"), "Zm8");
    EXPECT_EQ(ToBase64Url("foo"), "Zm9v");
    EXPECT_EQ(ToBase64Url("foobar"), "Zm9vYmFy");
    EXPECT_EQ(ToBase64Url("\xFB\xFF"), "-_8");
}

} // namespace TLGateway

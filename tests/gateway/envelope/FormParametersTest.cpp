#include "envelope/FormParameters.h"

#include "support/RefusalOf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace TLGateway {

using testing::HasSubstr;

TEST(FormParametersTest, DecodesEscapesAndPlus)
{
    const FormParameters parameters = ParseForm("a=1+2&b%20c=%E8%ae%A2&d=x=y");
    EXPECT_EQ(parameters, (FormParameters{{"a", "1 2"}, {"b c", "\xE8\xAE\xA2"}, {"d", "x=y"}}));
}

TEST(FormParametersTest, EmptyBodyEmptyValuesAndEmptyPairs)
{
    EXPECT_TRUE(ParseForm("").empty());
    EXPECT_EQ(ParseForm("&&a=&b&"), (FormParameters{{"a", ""}, {"b", ""}}));
}

TEST(FormParametersTest, ParameterThatOccursTwiceIsNamed)
{
    const Refusal refusal = RefusalOf([] { static_cast<void>(ParseForm("pin=1&x=2&p%69n=1")); });
    EXPECT_EQ(refusal.code, ErrorCode::BadParameter);
    EXPECT_EQ(refusal.message, "parameter \"pin\" occurs twice");
}

TEST(FormParametersTest, EscapeWithOneDigitAtTheEnd)
{
    EXPECT_EQ(RefusalOf([] { static_cast<void>(ParseForm("a=%4")); }).message,
              "parameter \"a\" has a broken percent escape");
    EXPECT_EQ(RefusalOf([] { static_cast<void>(ParseForm("a=%")); }).code, ErrorCode::BadParameter);
    EXPECT_EQ(RefusalOf([] { static_cast<void>(ParseForm("a=%zz")); }).code, ErrorCode::BadParameter);
    EXPECT_EQ(RefusalOf([] { static_cast<void>(ParseForm("%4=1")); }).code, ErrorCode::BadParameter);
}

TEST(FormParametersTest, InvalidUtf8IsNamed)
{
    EXPECT_EQ(RefusalOf([] { static_cast<void>(ParseForm("lang=%C3%28")); }).message,
              "parameter \"lang\" is not valid UTF-8");
    EXPECT_THAT(RefusalOf([] { static_cast<void>(ParseForm("%FF=1")); }).message, HasSubstr("\"\\xff\""));
    EXPECT_EQ(RefusalOf([] { static_cast<void>(ParseForm("raw=\xFF")); }).code, ErrorCode::BadParameter);
}

} // namespace TLGateway

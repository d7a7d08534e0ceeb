#include "json/BusinessJson.h"

#include "support/InvalidInputOf.h"

#include <boost/json/serialize.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace TLGateway {

namespace {

std::string Nested(std::size_t depth)
{
    return std::string(depth, '[') + std::string(depth, ']');
}

} // namespace

TEST(BusinessJsonTest, ReadsAnObject)
{
    EXPECT_EQ(boost::json::serialize(ParseBusinessJson(R"( {"a":[1,true,"\u8ba2"]} )")),
              R"({"a":[1,true,"订"]})");
}

TEST(BusinessJsonTest, WhatIsNotJson)
{
    for (const char* text : {"", " ", "{", "{\"a\":1", "{\"a\":1}x", "{'a':1}", "{\"a\":1,}", "nul", "NaN",
                             "\"\\ud800\"", "\"\n\"", "// x", "01"}) {
        EXPECT_EQ(InvalidInputOf([&] { static_cast<void>(ParseBusinessJson(text)); }).BrokenRule(),
                  InvalidInput::Rule::Json)
            << text;
    }
}

TEST(BusinessJsonTest, MessageGivesThePosition)
{
    EXPECT_THAT(InvalidInputOf([] { static_cast<void>(ParseBusinessJson("{\"a\":x}")); }).what(),
                testing::HasSubstr("near byte 5"));
}

TEST(BusinessJsonTest, DeepestThatIsTakenAndOneMore)
{
    EXPECT_NO_THROW(static_cast<void>(ParseBusinessJson(Nested(MaxJsonDepth))));
    const InvalidInput invalid =
        InvalidInputOf([] { static_cast<void>(ParseBusinessJson(Nested(MaxJsonDepth + 1))); });
    EXPECT_EQ(invalid.BrokenRule(), InvalidInput::Rule::Limit);
    EXPECT_THAT(invalid.what(), testing::HasSubstr("limit of 32 levels"));
}

TEST(BusinessJsonTest, TwoThousandLevelsWithoutAnEnd)
{
    std::string text;
    for (int i = 0; i < 2000; ++i) {
        text += "{\"a\":";
    }
    EXPECT_EQ(InvalidInputOf([&] { static_cast<void>(ParseBusinessJson(text)); }).BrokenRule(),
              InvalidInput::Rule::Limit);
}

} // namespace TLGateway

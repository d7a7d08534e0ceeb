#include "envelope/BusinessJson.h"

#include "support/RefusalOf.h"

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

TEST(BusinessJson, ReadsAnObject)
{
    EXPECT_EQ(boost::json::serialize(ParseBusinessJson(R"( {"a":[1,true,"\u8ba2"]} )")),
              R"({"a":[1,true,"订"]})");
}

TEST(BusinessJson, WhatIsNotJson)
{
    for (const char* text : {"", " ", "{", "{\"a\":1", "{\"a\":1}x", "{'a':1}", "{\"a\":1,}", "nul", "NaN",
                             "\"\\ud800\"", "\"\n\"", "// x", "01"}) {
        EXPECT_EQ(RefusalOf([&] { static_cast<void>(ParseBusinessJson(text)); }).code, ErrorCode::NotJson)
            << text;
    }
}

TEST(BusinessJson, MessageGivesThePosition)
{
    EXPECT_THAT(RefusalOf([] { static_cast<void>(ParseBusinessJson("{\"a\":x}")); }).message,
                testing::HasSubstr("near byte 5"));
}

TEST(BusinessJson, DeepestThatIsTakenAndOneMore)
{
    EXPECT_NO_THROW(static_cast<void>(ParseBusinessJson(Nested(MaxJsonDepth))));
    const Refusal refusal = RefusalOf([] { static_cast<void>(ParseBusinessJson(Nested(MaxJsonDepth + 1))); });
    EXPECT_EQ(refusal.code, ErrorCode::LimitExceeded);
    EXPECT_THAT(refusal.message, testing::HasSubstr("limit of 32 levels"));
}

TEST(BusinessJson, TwoThousandLevelsWithoutAnEnd)
{
    std::string text;
    for (int i = 0; i < 2000; ++i) {
        text += "{\"a\":";
    }
    EXPECT_EQ(RefusalOf([&] { static_cast<void>(ParseBusinessJson(text)); }).code, ErrorCode::LimitExceeded);
}

} // namespace TLGateway

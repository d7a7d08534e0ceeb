#include "methods/ToRefusal.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace TLGateway {

TEST(ToRefusalTest, BrokenRulesHaveTheirCodesAndKeepTheirText)
{
    using Rule = InvalidInput::Rule;
    const std::vector<std::pair<Rule, int>> codes = {
        {Rule::Json, 1008}, {Rule::Shape, 1009}, {Rule::Limit, 1010}};
    for (const auto& [rule, code] : codes) {
        const Refusal refusal = ToRefusal(InvalidInput(rule, "$.a: why"));
        EXPECT_EQ(static_cast<int>(refusal.code), code);
        EXPECT_EQ(refusal.message, "$.a: why");
    }
}

TEST(ToRefusalTest, FailuresOfWritesHaveTheirCodesAndTexts)
{
    using Reason = WriteFailure::Reason;
    const std::vector<std::pair<Reason, std::pair<int, std::string>>> refusals = {
        {Reason::QueueFull, {5001, "too many writes are waiting; try again"}},
        {Reason::Closing, {5001, "the gateway is shutting down; try again"}},
        {Reason::StoreFailed, {5002, "the store failed; the gateway's log has the details"}},
        {Reason::OutcomeUnknown,
         {5002, "it is not known whether this is stored; the gateway's log has the details"}},
        {Reason::UserExists, {1010, "there is already a user with this pin"}},
        {Reason::NoSuchUser, {1012, "there is no user with this pin"}},
        {Reason::Internal, {5003, "internal error"}},
    };
    for (const auto& [reason, expected] : refusals) {
        const Refusal refusal = ToRefusal(WriteFailure(reason));
        EXPECT_EQ(static_cast<int>(refusal.code), expected.first);
        EXPECT_EQ(refusal.message, expected.second);
    }
}

TEST(ToRefusalTest, RefusedEditIsALimitWithTheEditsText)
{
    const Refusal refusal = ToRefusal(WriteFailure(WriteFailure::Reason::EditRefused, "$.a: why"));
    EXPECT_EQ(static_cast<int>(refusal.code), 1010);
    EXPECT_EQ(refusal.message, "$.a: why");
}

TEST(ToRefusalTest, WhatTheDatabaseSaysStaysInTheLog)
{
    const Refusal refusal = ToRefusal(StoreError("database /secret/file: damaged"));
    EXPECT_EQ(static_cast<int>(refusal.code), 5002);
    EXPECT_EQ(refusal.message, "the store failed; the gateway's log has the details");
}

} // namespace TLGateway

#include "http/HttpCallKind.h"

#include "FakeResponse.h"
#include "PlainResponse.h"

#include <gtest/gtest.h>

TEST(HttpCallKindTest, ACallForWhichAKeptReplyMayServeIsARead)
{
    EXPECT_FALSE(HttpCallKind::IsWrite(FakeResponse(true)));
}

TEST(HttpCallKindTest, ACallForWhichNoKeptReplyMayServeIsAWrite)
{
    EXPECT_TRUE(HttpCallKind::IsWrite(FakeResponse(false)));
}

TEST(HttpCallKindTest, ACallWhoseResponseKnowsNothingOfKeptRepliesIsAWrite)
{
    EXPECT_TRUE(HttpCallKind::IsWrite(PlainResponse()));
}

#include "envelope/ReplyEnvelope.h"

#include <gtest/gtest.h>

namespace TLGateway {

TEST(ReplyEnvelopeTest, SuccessHasCodeZeroAsTextAndTheData)
{
    EXPECT_EQ(SuccessReply("r1", true), R"({"code":"0","message":"","requestId":"r1","data":true})");
}

TEST(ReplyEnvelopeTest, RefusalHasNullData)
{
    EXPECT_EQ(RefusalReply("r1", {ErrorCode::SignWrong, "sign is \"wrong\""}),
              R"({"code":"1004","message":"sign is \"wrong\"","requestId":"r1","data":null})");
}

TEST(ReplyEnvelopeTest, RequestIdsAreHexAndDiffer)
{
    const std::string id = NewRequestId();
    EXPECT_EQ(id.size(), 32U);
    EXPECT_EQ(id.find_first_not_of("0123456789abcdef"), std::string::npos);
    EXPECT_NE(id, NewRequestId());
}

TEST(ErrorCodeTest, HttpStatusOfEveryCode)
{
    const std::pair<int, int> table[] = {{0, 200},    {1001, 400}, {1002, 401}, {1003, 401}, {1004, 401},
                                         {1005, 400}, {1006, 401}, {1007, 404}, {1008, 400}, {1009, 400},
                                         {1010, 400}, {1011, 413}, {1012, 404}, {2001, 401}, {2002, 401},
                                         {2003, 401}, {2004, 403}, {2005, 403}, {2006, 429}, {5001, 503},
                                         {5002, 500}, {5003, 500}};
    for (const auto& [code, status] : table) {
        EXPECT_EQ(HttpStatus(static_cast<ErrorCode>(code)), status) << code;
    }
}

} // namespace TLGateway

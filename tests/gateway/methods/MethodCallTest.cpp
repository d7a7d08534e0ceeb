#include "methods/MethodCall.h"

#include "envelope/Refused.h"
#include "store/StoreError.h"
#include "support/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace TLGateway {

using testing::HasSubstr;

class MethodCallTest : public testing::Test
{
protected:
    [[nodiscard]] MethodCallPtr NewCall()
    {
        return std::make_shared<MethodCall>(
            "r1", 0, [this](ErrorCode code, const std::string&) { answers.push_back(code); }, log.Logger());
    }

    LogCapture log;
    std::vector<ErrorCode> answers;
};

TEST_F(MethodCallTest, IsAnsweredOnce)
{
    const auto call = NewCall();
    call->Succeed(true);
    call->Refuse({ErrorCode::Busy, "late"});
    call->Succeed(false);
    EXPECT_EQ(answers, std::vector<ErrorCode>{ErrorCode::Success});
}

TEST_F(MethodCallTest, DroppedCallIsAnInternalError)
{
    NewCall().reset();
    EXPECT_EQ(answers, std::vector<ErrorCode>{ErrorCode::Internal});
    EXPECT_THAT(log.Text(), HasSubstr("request=r1"));
}

TEST_F(MethodCallTest, WhatAStepThrowsBecomesTheAnswer)
{
    NewCall()->Run([] { throw Refused(ErrorCode::NotJson, "x"); });
    NewCall()->Run([] { throw StoreError("disk full in /secret/path"); });
    NewCall()->Run([] { throw std::runtime_error("oops"); });
    EXPECT_EQ(answers,
              (std::vector<ErrorCode>{ErrorCode::NotJson, ErrorCode::StoreFailed, ErrorCode::Internal}));
    EXPECT_THAT(log.Text(), HasSubstr("request=r1 disk full in /secret/path"));
    EXPECT_THAT(log.Text(), HasSubstr("request=r1 internal error: oops"));
}

TEST_F(MethodCallTest, RefusalIsLoggedWithRequestMethodAndPin)
{
    const auto call = NewCall();
    call->SetMethod("m");
    call->SetPin("an\nna");
    call->Refuse({ErrorCode::NotTheCaller, "why"});
    EXPECT_THAT(log.Text(),
                HasSubstr("refused request=r1 method=\"m\" pin=\"an\\x0ana\" code=2005 reason=why"));
}

} // namespace TLGateway

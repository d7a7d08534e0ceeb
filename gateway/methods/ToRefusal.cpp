#include "methods/ToRefusal.h"

namespace TLGateway {

namespace {

ErrorCode CodeOf(InvalidInput::Rule rule) noexcept
{
    switch (rule) {
    case InvalidInput::Rule::Json:
        return ErrorCode::NotJson;
    case InvalidInput::Rule::Shape:
        return ErrorCode::WrongShape;
    case InvalidInput::Rule::Limit:
        return ErrorCode::LimitExceeded;
    }
    return ErrorCode::Internal;
}

ErrorCode CodeOf(WriteFailure::Reason reason) noexcept
{
    switch (reason) {
    case WriteFailure::Reason::QueueFull:
    case WriteFailure::Reason::Closing:
        return ErrorCode::Busy;
    case WriteFailure::Reason::StoreFailed:
    case WriteFailure::Reason::OutcomeUnknown:
        return ErrorCode::StoreFailed;
    case WriteFailure::Reason::UserExists:
    case WriteFailure::Reason::EditRefused:
        return ErrorCode::LimitExceeded;
    case WriteFailure::Reason::NoSuchUser:
        return ErrorCode::NoSuchResource;
    case WriteFailure::Reason::Internal:
        return ErrorCode::Internal;
    }
    return ErrorCode::Internal;
}

} // namespace

Refusal ToRefusal(const InvalidInput& invalid)
{
    return {CodeOf(invalid.BrokenRule()), invalid.what()};
}

Refusal ToRefusal(const WriteFailure& failure)
{
    return {CodeOf(failure.reason), failure.message};
}

Refusal ToRefusal(const StoreError&)
{
    return ToRefusal(WriteFailure(WriteFailure::Reason::StoreFailed));
}

} // namespace TLGateway

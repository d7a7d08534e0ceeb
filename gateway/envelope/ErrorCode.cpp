#include "envelope/ErrorCode.h"

namespace TLGateway {

int HttpStatus(ErrorCode code) noexcept
{
    switch (code) {
    case ErrorCode::Success:
        return 200;
    case ErrorCode::BadParameter:
    case ErrorCode::TimestampForm:
    case ErrorCode::NotJson:
    case ErrorCode::WrongShape:
    case ErrorCode::LimitExceeded:
        return 400;
    case ErrorCode::UnknownAppKey:
    case ErrorCode::SignMissing:
    case ErrorCode::SignWrong:
    case ErrorCode::TimestampOff:
    case ErrorCode::WrongPassword:
    case ErrorCode::TokenUnknown:
    case ErrorCode::TokenExpired:
        return 401;
    case ErrorCode::TokenOfOtherDevice:
    case ErrorCode::NotTheCaller:
        return 403;
    case ErrorCode::UnknownMethod:
    case ErrorCode::NoSuchResource:
        return 404;
    case ErrorCode::BodyTooLarge:
        return 413;
    case ErrorCode::LoginLocked:
        return 429;
    case ErrorCode::Busy:
        return 503;
    case ErrorCode::StoreFailed:
    case ErrorCode::Internal:
        return 500;
    }
    return 500;
}

} // namespace TLGateway

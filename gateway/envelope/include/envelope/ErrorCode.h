#pragma once

namespace TLGateway {

// What a reply's "code" says. Codes from 5000 on are the server's fault; a retry may help.
enum class ErrorCode
{
    Success = 0,
    BadParameter = 1001,
    UnknownAppKey = 1002,
    SignMissing = 1003,
    SignWrong = 1004,
    TimestampForm = 1005,
    TimestampOff = 1006,
    UnknownMethod = 1007,
    NotJson = 1008,
    WrongShape = 1009,
    LimitExceeded = 1010,
    BodyTooLarge = 1011,
    NoSuchResource = 1012,
    WrongPassword = 2001,
    TokenUnknown = 2002,
    TokenExpired = 2003,
    TokenOfOtherDevice = 2004,
    NotTheCaller = 2005,
    LoginLocked = 2006,
    Busy = 5001,
    StoreFailed = 5002,
    Internal = 5003,
};

// The HTTP status that goes with a code. NoSuchResource gives 404; a caller that means 405 says so itself.
[[nodiscard]] int HttpStatus(ErrorCode code) noexcept;

} // namespace TLGateway

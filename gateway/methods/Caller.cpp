#include "methods/Caller.h"

#include "envelope/Refused.h"

namespace TLGateway {

Caller ReadCaller(const JsonObjectReader& reader)
{
    Caller caller;
    caller.pin = reader.String("pin");
    caller.belongType = reader.String("belongType");
    caller.deviceId = reader.String("deviceId");
    static_cast<void>(reader.String("platform"));
    return caller;
}

void CheckCaller(const Caller& caller, const TokenRecord& token)
{
    if (caller.pin != token.pin) {
        throw Refused(ErrorCode::NotTheCaller, "pin is not that of the access token");
    }
    if (caller.belongType != token.belongType) {
        throw Refused(ErrorCode::NotTheCaller, "belongType is not that of the access token");
    }
    if (caller.deviceId != token.deviceId) {
        throw Refused(ErrorCode::TokenOfOtherDevice, "the access token belongs to another device");
    }
}

} // namespace TLGateway

#pragma once

#include "base/Clock.h"
#include "envelope/AppKeyRing.h"

#include <string>
#include <string_view>

namespace TLGateway {

// What a request says around its business JSON, once form, app key, sign and time stamp have been checked.
struct RequestEnvelope
{
    std::string method;
    std::string accessToken;
    std::string language;
    std::string region;
    std::string platform;
    std::string businessJson;
};

// How far a time stamp may be off the gateway's clock, either way [s].
constexpr UnixTime TimestampTolerance = 300;

// Reads the body of a request and does the checks that need no store, in the protocol's order: form and
// parameters (1001), app key (1002), sign (1003, 1004), time stamp (1005, 1006). Throws Refused.
[[nodiscard]] RequestEnvelope ReadEnvelope(std::string_view body, const AppKeyRing& keys, UnixTime now);

} // namespace TLGateway

#include "envelope/RequestEnvelope.h"

#include "base/Hashing.h"
#include "base/Text.h"
#include "base/TimeStamp.h"
#include "envelope/FormParameters.h"
#include "envelope/Refused.h"
#include "envelope/Signing.h"

#include <cstdlib>

namespace TLGateway {

namespace {

constexpr std::string_view RequiredParameters[] = {
    "method", "app_key", "access_token", "timestamp",         "format",
    "lang",   "region",  "platform",     "tradix_param_json",
};

void CheckParameters(const FormParameters& parameters)
{
    for (const std::string_view name : RequiredParameters) {
        if (parameters.find(name) == parameters.end()) {
            throw Refused(ErrorCode::BadParameter, "parameter " + Quoted(name) + " is missing");
        }
    }
    if (parameters.find("format")->second != "json") {
        throw Refused(ErrorCode::BadParameter, "parameter \"format\" is not \"json\"");
    }
}

void CheckSign(const FormParameters& parameters, const AppKeyRing& keys)
{
    const auto secret = keys.FindSecret(parameters.find("app_key")->second);
    if (!secret) {
        throw Refused(ErrorCode::UnknownAppKey, "app_key is unknown to this gateway");
    }
    const auto sign = parameters.find("sign");
    if (sign == parameters.end() || sign->second.empty()) {
        throw Refused(ErrorCode::SignMissing, "sign is missing");
    }
    if (!EqualInConstantTime(sign->second, Sign(parameters, *secret))) {
        throw Refused(ErrorCode::SignWrong, "sign is wrong");
    }
}

void CheckTimestamp(const FormParameters& parameters, UnixTime now)
{
    const auto time = ParseTimeStamp(parameters.find("timestamp")->second);
    if (!time) {
        throw Refused(ErrorCode::TimestampForm, "timestamp is not of the form yyyy-MM-dd hh:mm:ss");
    }
    if (std::llabs(*time - now) > TimestampTolerance) {
        throw Refused(ErrorCode::TimestampOff,
                      "timestamp is more than 5 minutes off; the gateway's time is " + FormatTimeStamp(now) +
                          " UTC");
    }
}

} // namespace

RequestEnvelope ReadEnvelope(std::string_view body, const AppKeyRing& keys, UnixTime now)
{
    FormParameters parameters = ParseForm(body);
    CheckParameters(parameters);
    CheckSign(parameters, keys);
    CheckTimestamp(parameters, now);

    const auto take = [&parameters](std::string_view name) {
        return std::move(parameters.find(name)->second);
    };
    return {take("method"), take("access_token"), take("lang"),
            take("region"), take("platform"),     take("tradix_param_json")};
}

} // namespace TLGateway

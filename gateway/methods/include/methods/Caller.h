#pragma once

#include "records/TokenRecord.h"
#include "json/JsonObjectReader.h"

#include <string>

namespace TLGateway {

// Longest pin, belong type, device and platform that a request may name [code points].
constexpr std::size_t MaxCallerTextLength = 128;

// The object of a business JSON that says who is asking.
struct Caller
{
    std::string pin;
    std::string belongType;
    std::string deviceId;
};

// Reads the object. Throws InvalidInput.
[[nodiscard]] Caller ReadCaller(const JsonObjectReader& reader);

// Throws Refused unless the token belongs to the caller: pin and belong type (2005), device (2004).
void CheckCaller(const Caller& caller, const TokenRecord& token);

} // namespace TLGateway

#pragma once

#include "records/AutoRunConfiguration.h"
#include "json/JsonObjectReader.h"

#include <boost/json/object.hpp>

namespace TLGateway {

// Who wrote the JSON; decides what a system entry must hold.
enum class ConfigurationSource
{
    User,     // a system entry needs itemId, checked and activeItem only
    Operator, // all seven members, like every other entry
};

// Reads the three lists. Throws InvalidInput for a wrong shape. CheckLimits looks at the limits.
[[nodiscard]] AutoRunConfiguration ReadConfiguration(const JsonObjectReader& lists,
                                                     ConfigurationSource source);

[[nodiscard]] boost::json::object ToJson(const AutoRunConfiguration& configuration);

} // namespace TLGateway

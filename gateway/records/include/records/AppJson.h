#pragma once

#include "records/AppRecord.h"

#include <boost/json/object.hpp>
#include <boost/json/value.hpp>

#include <vector>

namespace TLGateway {

// Reads the operator's catalogue: an array of apps, each with all five members. Throws InvalidInput for
// a wrong shape or a broken limit (lengths, availability, a service code that occurs twice).
[[nodiscard]] std::vector<AppRecord> ReadApps(const boost::json::value& catalogue);

[[nodiscard]] boost::json::object ToJson(const AppRecord& app);

} // namespace TLGateway

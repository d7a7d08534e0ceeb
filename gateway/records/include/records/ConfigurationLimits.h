#pragma once

#include "records/AutoRunConfiguration.h"
#include "records/ConfigurationJson.h"

#include <cstddef>
#include <string>

namespace TLGateway {

constexpr std::size_t MaxCustomEntries = 5;
constexpr std::size_t MaxAppEntries = 5;
constexpr std::size_t MaxSystemEntries = 50;
constexpr std::size_t MaxItemIdLength = 64; // [code points], as all lengths here
constexpr std::size_t MaxNameLength = 256;
constexpr std::size_t MaxUrlLength = 2048;
constexpr int MaxEntryType = 99;
constexpr int AppEntryType = 1;

// Checks a configuration against every limit. Throws InvalidInput whose message gives the path below
// `path` and the limit. A user's system entries may leave out name and address.
void CheckLimits(const AutoRunConfiguration& configuration, ConfigurationSource source,
                 const std::string& path);

// What is stored after a user's write: the requested custom and app entries, and the operator's system
// entries with the user's two flags where the request names the entry. Throws InvalidInput when the result
// has an itemId twice or more than one entry to open first.
[[nodiscard]] AutoRunConfiguration ApplyUsersWrite(const AutoRunConfiguration& stored,
                                                   const AutoRunConfiguration& requested,
                                                   const std::string& path);

} // namespace TLGateway

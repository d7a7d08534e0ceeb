#pragma once

#include "SqliteError.h"

#include <string>

namespace TLGateway {

// A line for the operator: what failed, in which file, what SQLite said, and what to do about it.
[[nodiscard]] std::string DescribeForOperator(const std::string& action, const std::string& file,
                                              const SqliteError& error);

} // namespace TLGateway

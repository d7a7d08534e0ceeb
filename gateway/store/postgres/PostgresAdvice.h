#pragma once

#include "PostgresError.h"

#include <string>

namespace TLGateway {

// A line for the operator: what failed, in which database, what PostgreSQL said, and what to do about it.
[[nodiscard]] std::string DescribeForOperator(const std::string& action, const std::string& database,
                                              const PostgresError& error);

} // namespace TLGateway

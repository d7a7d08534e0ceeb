#pragma once

#include <chrono>

namespace TLGateway {

// How long a connection to a PostgreSQL server waits.
struct PostgresLimits
{
    std::chrono::milliseconds lock{5000};       // for a lock that another session holds
    std::chrono::milliseconds statement{10000}; // until the server gives up, locks included
    std::chrono::milliseconds answer{15000};    // until the connection is given up
};

} // namespace TLGateway

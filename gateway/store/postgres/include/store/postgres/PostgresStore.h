#pragma once

#include "base/Clock.h"
#include "store/postgres/PostgresLimits.h"
#include "store/rows/RowStore.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

namespace spdlog {
class logger;
}

namespace TLGateway {

// The store on a PostgreSQL server, which several gateways may use at once. While the server is gone reads
// throw and writes fail (StoreFailed); when it is back the store recovers by itself.
class PostgresStore final : public RowStore
{
public:
    struct Options
    {
        std::string url; // "postgresql://USER@HOST:PORT/NAME?PARAMETER=VALUE"
        std::size_t readers = 8;
        std::size_t queueLimit = 1024; // writes that may wait
        PostgresLimits limits;
        // How long Close waits for a server that has not yet said whether a commit was done.
        std::chrono::milliseconds doubtAtClose{10000};
        bool mustExist = false; // do not fill an empty database
        Clock clock = &SystemTime;
    };

    // Opens the database and creates or updates the gateway's schema in it. Throws std::invalid_argument for
    // the URL, and StoreError when the server cannot be reached, the database belongs to another program or a
    // newer gateway, or cannot keep every text.
    PostgresStore(const Options& options, std::shared_ptr<spdlog::logger> logger);
};

} // namespace TLGateway

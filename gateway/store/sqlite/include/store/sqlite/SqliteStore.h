#pragma once

#include "base/Clock.h"
#include "store/rows/RowStore.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace spdlog {
class logger;
}

namespace TLGateway {

// The embedded store: one file in WAL mode. Closing moves the write-ahead log into the file.
class SqliteStore final : public RowStore
{
public:
    struct Options
    {
        std::string file; // UTF-8
        std::chrono::milliseconds busyTimeout{5000};
        std::size_t queueLimit = 1024; // writes that may wait
        std::int64_t maxPages = 0;     // the file grows no further [pages]; 0: no such limit
        bool mustExist = false;        // do not create the file
        bool checkIntegrity = false;   // check the whole file before touching it
        Clock clock = &SystemTime;
    };

    // Opens or creates the file. Throws StoreError when that fails, when the file is damaged or belongs to
    // another program; such a file is left as it is.
    SqliteStore(const Options& options, std::shared_ptr<spdlog::logger> logger);
};

} // namespace TLGateway

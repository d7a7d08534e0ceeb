#include "store/sqlite/SqliteStore.h"

#include "SqliteEngine.h"

#include <utility>

namespace TLGateway {

SqliteStore::SqliteStore(const Options& options, std::shared_ptr<spdlog::logger> logger)
    : RowStore(std::make_unique<SqliteEngine>(options, std::move(logger)), options.clock)
{}

} // namespace TLGateway

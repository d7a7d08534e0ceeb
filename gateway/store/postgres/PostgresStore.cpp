#include "store/postgres/PostgresStore.h"

#include "PostgresEngine.h"

#include <utility>

namespace TLGateway {

PostgresStore::PostgresStore(const Options& options, std::shared_ptr<spdlog::logger> logger)
    : RowStore(std::make_unique<PostgresEngine>(options, std::move(logger)), options.clock)
{}

} // namespace TLGateway

#include "store/opener/OpenStore.h"

#include "store/StoreUrl.h"
#include "store/postgres/PostgresStore.h"
#include "store/sqlite/SqliteStore.h"

#include <utility>

namespace TLGateway {

std::unique_ptr<IStore> OpenStore(const std::string& url, const OpenStoreOptions& options,
                                  std::shared_ptr<spdlog::logger> logger)
{
    if (KindOfUrl(url) == StoreKind::Postgres) {
        PostgresStore::Options postgres;
        postgres.url = url;
        postgres.mustExist = options.mustExist;
        return std::make_unique<PostgresStore>(postgres, std::move(logger));
    }
    SqliteStore::Options sqlite;
    sqlite.file = SqliteFileOfUrl(url);
    sqlite.mustExist = options.mustExist;
    sqlite.checkIntegrity = options.checkIntegrity;
    return std::make_unique<SqliteStore>(sqlite, std::move(logger));
}

} // namespace TLGateway

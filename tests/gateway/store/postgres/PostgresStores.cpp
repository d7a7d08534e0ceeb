#include "PostgresConnection.h"
#include "store/StoreTest.h"
#include "store/postgres/PostgresStore.h"
#include "support/PostgresServer.h"

namespace TLGateway {

namespace {

class PostgresDatabase final : public TestDatabase
{
public:
    std::unique_ptr<IStore> Open(const Options& options, std::shared_ptr<spdlog::logger> logger) override
    {
        PostgresStore::Options postgres;
        postgres.url = m_url;
        postgres.clock = options.clock;
        postgres.queueLimit = options.queueLimit;
        postgres.mustExist = options.mustExist;
        return std::make_unique<PostgresStore>(postgres, std::move(logger));
    }

    void Execute(const std::string& sql) override
    {
        PostgresConnection(PostgresTarget(m_url), {}).Execute(sql.c_str());
    }

private:
    const std::string m_url = PostgresServer::Shared().NewDatabase();
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Postgres, StoreTest, testing::Values(MakeTestDatabase([] {
                             return std::unique_ptr<TestDatabase>(std::make_unique<PostgresDatabase>());
                         })));

} // namespace TLGateway

#include "SqliteConnection.h"
#include "store/StoreTest.h"
#include "store/sqlite/SqliteStore.h"
#include "support/TemporaryFolder.h"

namespace TLGateway {

namespace {

class SqliteDatabase final : public TestDatabase
{
public:
    std::unique_ptr<IStore> Open(const Options& options, std::shared_ptr<spdlog::logger> logger) override
    {
        SqliteStore::Options sqlite;
        sqlite.file = m_file;
        sqlite.clock = options.clock;
        sqlite.queueLimit = options.queueLimit;
        sqlite.mustExist = options.mustExist;
        return std::make_unique<SqliteStore>(sqlite, std::move(logger));
    }

    void Execute(const std::string& sql) override
    {
        SqliteConnection(m_file, SqliteConnection::Mode::ReadWrite, std::chrono::seconds(10))
            .Execute(sql.c_str());
    }

private:
    TemporaryFolder m_folder;
    std::string m_file = m_folder.File("a.db");
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Sqlite, StoreTest, testing::Values(MakeTestDatabase([] {
                             return std::unique_ptr<TestDatabase>(std::make_unique<SqliteDatabase>());
                         })));

} // namespace TLGateway

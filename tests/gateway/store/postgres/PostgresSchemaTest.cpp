#include "PostgresSchema.h"

#include "PostgresError.h"
#include "support/PostgresServer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace TLGateway {

using testing::HasSubstr;

class PostgresSchemaTest : public testing::Test
{
protected:
    using Scripts = std::vector<const char*>;

    void Migrate(const Scripts& scripts) { MigrateSchema(connection, scripts, EmptyDatabase::IsFilled); }

    std::string Problem(const Scripts& scripts)
    {
        try {
            Migrate(scripts);
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        ADD_FAILURE() << "the database was taken";
        return {};
    }

    std::string Version() { return connection.SingleValue("SELECT version FROM tl_gateway.schema_version"); }

    const std::string url = PostgresServer::Shared().NewDatabase();
    PostgresConnection connection{PostgresTarget(url), {}};
};

TEST_F(PostgresSchemaTest, EmptyDatabaseGetsTheNewestVersion)
{
    Migrate(PostgresSchemaScripts());
    EXPECT_EQ(Version(), std::to_string(PostgresSchemaScripts().size()));
    EXPECT_EQ(connection.SingleValue("SELECT count(*) FROM tl_gateway.configuration"), "0");
    EXPECT_NO_THROW(Migrate(PostgresSchemaScripts()));
}

TEST_F(PostgresSchemaTest, OlderDatabaseKeepsItsRows)
{
    Migrate({"CREATE TABLE a (x int)"});
    connection.Execute("INSERT INTO a VALUES (5)");
    Migrate({"CREATE TABLE a (x int)", "ALTER TABLE a ADD COLUMN y int DEFAULT 7"});
    EXPECT_EQ(connection.SingleValue("SELECT x || ',' || y FROM tl_gateway.a"), "5,7");
}

TEST_F(PostgresSchemaTest, FailingScriptLeavesTheVersionBefore)
{
    EXPECT_THROW(Migrate({"CREATE TABLE a (x int)", "CREATE TABLE b (y int); CREATE TABLE a (x int)"}),
                 PostgresError);
    EXPECT_EQ(Version(), "1");
    EXPECT_EQ(connection.SingleValue("SELECT to_regclass('tl_gateway.b') IS NULL"), "t");
}

TEST_F(PostgresSchemaTest, DatabaseOfANewerGatewayIsRefused)
{
    Migrate({"CREATE TABLE a (x int)", "CREATE TABLE b (x int)"});
    EXPECT_THAT(Problem({"CREATE TABLE a (x int)"}), HasSubstr("newer gateway (schema 2"));
}

TEST_F(PostgresSchemaTest, DatabaseOfAnotherProgramIsRefusedAndLeftAlone)
{
    connection.Execute("CREATE SCHEMA other; CREATE TABLE other.bookmarks (x int)");
    EXPECT_THAT(Problem(PostgresSchemaScripts()), HasSubstr("another program"));
    EXPECT_EQ(connection.SingleValue("SELECT to_regnamespace('tl_gateway') IS NULL"), "t");
}

TEST_F(PostgresSchemaTest, SchemaOfTheSameNameIsRefusedAndLeftAlone)
{
    connection.Execute("CREATE SCHEMA tl_gateway");
    EXPECT_THAT(Problem(PostgresSchemaScripts()), HasSubstr("another program"));
    EXPECT_EQ(connection.SingleValue("SELECT count(*) FROM pg_class WHERE relnamespace = "
                                     "'tl_gateway'::regnamespace"),
              "0");
}

TEST_F(PostgresSchemaTest, EmptyDatabaseCanBeRefused)
{
    EXPECT_THROW(MigrateSchema(connection, PostgresSchemaScripts(), EmptyDatabase::IsRefused),
                 std::runtime_error);
    EXPECT_EQ(connection.SingleValue("SELECT to_regnamespace('tl_gateway') IS NULL"), "t");
}

TEST_F(PostgresSchemaTest, GatewaysThatStartAtOnceWaitForEachOther)
{
    PostgresLimits patient;
    patient.lock = patient.statement = patient.answer = std::chrono::seconds(60);
    std::vector<std::thread> gateways;
    for (int i = 0; i < 8; ++i) {
        gateways.emplace_back([&] {
            PostgresConnection own(PostgresTarget(url), patient);
            EXPECT_NO_THROW(MigrateSchema(own, PostgresSchemaScripts(), EmptyDatabase::IsFilled));
        });
    }
    for (std::thread& gateway : gateways) {
        gateway.join();
    }
    EXPECT_EQ(Version(), std::to_string(PostgresSchemaScripts().size()));
}

} // namespace TLGateway

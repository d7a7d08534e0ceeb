#include "SqliteSchema.h"

#include "SqliteError.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>

namespace TLGateway {

class SqliteSchemaTest : public testing::Test
{
protected:
    TemporaryFolder folder;
    SqliteConnection connection{folder.File("a.db"), SqliteConnection::Mode::ReadWrite,
                                std::chrono::milliseconds(100)};
};

TEST_F(SqliteSchemaTest, NewFileGetsTheNewestVersion)
{
    MigrateSchema(connection, SchemaScripts());
    EXPECT_EQ(connection.SingleValue("PRAGMA user_version"), std::to_string(SchemaScripts().size()));
    EXPECT_EQ(connection.SingleValue("SELECT count(*) FROM configuration"), "0");
}

TEST_F(SqliteSchemaTest, SecondMigrationChangesNothing)
{
    MigrateSchema(connection, SchemaScripts());
    const std::string before = connection.SingleValue("PRAGMA schema_version");
    MigrateSchema(connection, SchemaScripts());
    EXPECT_EQ(connection.SingleValue("PRAGMA schema_version"), before);
}

TEST_F(SqliteSchemaTest, OlderFileKeepsItsRows)
{
    MigrateSchema(connection, {"CREATE TABLE a (x)"});
    connection.Execute("INSERT INTO a VALUES (5)");
    MigrateSchema(connection, {"CREATE TABLE a (x)", "ALTER TABLE a ADD COLUMN y DEFAULT 7"});
    EXPECT_EQ(connection.SingleValue("SELECT x || ',' || y FROM a"), "5,7");
}

TEST_F(SqliteSchemaTest, FailingScriptLeavesTheVersionBefore)
{
    EXPECT_THROW(MigrateSchema(connection, {"CREATE TABLE a (x)", "CREATE TABLE b (y); CREATE TABLE a (x)"}),
                 SqliteError);
    EXPECT_EQ(connection.SingleValue("PRAGMA user_version"), "1");
    EXPECT_EQ(connection.SingleValue("SELECT count(*) FROM sqlite_schema WHERE name = 'b'"), "0");
}

TEST_F(SqliteSchemaTest, FileOfANewerGatewayIsRefused)
{
    MigrateSchema(connection, {"CREATE TABLE a (x)", "CREATE TABLE b (x)"});
    try {
        MigrateSchema(connection, {"CREATE TABLE a (x)"});
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("newer gateway"), std::string::npos);
    }
}

TEST_F(SqliteSchemaTest, DatabaseOfAnotherProgramIsRefusedAndLeftAlone)
{
    connection.Execute("CREATE TABLE bookmarks (x)");
    EXPECT_THROW(MigrateSchema(connection, SchemaScripts()), std::runtime_error);
    EXPECT_EQ(connection.SingleValue("SELECT count(*) FROM sqlite_schema"), "1");
}

} // namespace TLGateway

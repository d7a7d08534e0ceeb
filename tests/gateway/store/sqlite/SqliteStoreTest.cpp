#include "store/sqlite/SqliteStore.h"

#include "SqliteConnection.h"
#include "store/StoreError.h"
#include "support/Await.h"
#include "support/LogCapture.h"
#include "support/SampleConfiguration.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace TLGateway {

using testing::AllOf;
using testing::HasSubstr;

class SqliteStoreTest : public testing::Test
{
protected:
    SqliteStoreTest()
    {
        options.file = folder.File("a.db");
        options.clock = [this] { return now; };
    }

    void Open()
    {
        store.reset();
        store = std::make_unique<SqliteStore>(options, log.Logger());
    }

    void AddUser(const std::string& pin)
    {
        ASSERT_FALSE(Await([&](auto done) { store->AddUser({pin, "merchant", "hash"}, done); }));
    }

    std::optional<WriteFailure> Put(const std::string& pin, const AutoRunConfiguration& configuration)
    {
        return Await([&](auto done) {
            store->EditConfiguration(
                pin, "user", [&](const AutoRunConfiguration&) { return configuration; }, done);
        });
    }

    static AutoRunConfiguration Named(const std::string& name) { return {{}, {CustomEntry("c", name)}, {}}; }

    [[nodiscard]] std::string OpenFailure()
    {
        try {
            Open();
        } catch (const StoreError& error) {
            return error.what();
        }
        ADD_FAILURE() << "the store was opened";
        return {};
    }

    TemporaryFolder folder;
    LogCapture log;
    UnixTime now = 1000;
    SqliteStore::Options options;
    std::unique_ptr<SqliteStore> store;
};

TEST_F(SqliteStoreTest, FullDiskLeavesEveryAnsweredWriteAndNothingElse)
{
    options.maxPages = 60;
    Open();
    constexpr int users = 4;
    for (int user = 0; user < users; ++user) {
        AddUser("user" + std::to_string(user));
    }
    std::vector<std::string> lastStored(users);
    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    for (int user = 0; user < users; ++user) {
        threads.emplace_back([&, user] {
            for (int i = 0; i < 20; ++i) {
                const std::string name = std::to_string(i) + std::string(4000, 'x');
                const auto failure = Put("user" + std::to_string(user), Named(name));
                if (failure) {
                    EXPECT_EQ(failure->reason, WriteFailure::Reason::StoreFailed);
                    ++failures;
                } else {
                    lastStored[static_cast<std::size_t>(user)] = name;
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_GT(failures, 0);
    EXPECT_THAT(log.Text(), HasSubstr("The disk is full: free space"));
    options.maxPages = 0;
    options.checkIntegrity = true;
    Open();
    for (int user = 0; user < users; ++user) {
        const std::string& expected = lastStored[static_cast<std::size_t>(user)];
        const auto stored = store->FindConfiguration("user" + std::to_string(user)).configuration;
        EXPECT_EQ(stored, expected.empty() ? AutoRunConfiguration() : Named(expected));
    }
    EXPECT_FALSE(Put("user0", Named("after the disk was freed")));
}

TEST_F(SqliteStoreTest, NewFileIsItsOwnersAlone)
{
    Open();
#ifndef _WIN32
    const auto rights = std::filesystem::status(std::filesystem::u8path(options.file)).permissions();
    EXPECT_EQ(rights & (std::filesystem::perms::group_all | std::filesystem::perms::others_all),
              std::filesystem::perms::none);
#endif
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::u8path(options.file)));
}

TEST_F(SqliteStoreTest, DamagedFileIsRefusedAtTheStartAndLeftAsItIs)
{
    Open();
    for (int i = 0; i < 50; ++i) {
        AddUser("user" + std::to_string(i) + std::string(100, 'x'));
    }
    store.reset();
    DamageFile(options.file, 4096);
    const std::string before = ReadBytes(options.file);
    options.checkIntegrity = true;
    EXPECT_THAT(OpenFailure(),
                AllOf(HasSubstr(options.file), HasSubstr("damage"), HasSubstr("restore the last backup")));
    EXPECT_EQ(ReadBytes(options.file), before);
}

TEST_F(SqliteStoreTest, FileThatIsNoDatabaseIsRefusedAndLeftAsItIs)
{
    options.checkIntegrity = true;
    const std::string text(10000, 'x');
    options.file = folder.Write("notes.txt", text);
    EXPECT_THAT(OpenFailure(), AllOf(HasSubstr(options.file), HasSubstr("not a database")));
    EXPECT_EQ(ReadBytes(options.file), text);
}

TEST_F(SqliteStoreTest, DatabaseOfAnotherProgramIsRefused)
{
    {
        SqliteConnection other(options.file, SqliteConnection::Mode::ReadWrite, std::chrono::milliseconds(0));
        other.Execute("CREATE TABLE bookmarks (x)");
    }
    EXPECT_THAT(OpenFailure(), HasSubstr("another program"));
}

TEST_F(SqliteStoreTest, FileThatMustExistIsNotMade)
{
    options.mustExist = true;
    EXPECT_THAT(OpenFailure(), HasSubstr("no such file"));
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::u8path(options.file)));
}

TEST_F(SqliteStoreTest, MissingFolderAndFolderInsteadOfAFile)
{
    options.file = folder.File("missing/a.db");
    EXPECT_THAT(OpenFailure(), HasSubstr("does not exist"));
    options.file = folder.File("");
    EXPECT_THAT(OpenFailure(), HasSubstr("not a file"));
}

} // namespace TLGateway

#include "store/sqlite/SqliteStore.h"

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

    std::optional<Refusal> Put(const std::string& pin, const AutoRunConfiguration& configuration)
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

TEST_F(SqliteStoreTest, EverythingIsThereAfterReopening)
{
    Open();
    AddUser("anna");
    ASSERT_FALSE(Put("anna", SampleConfiguration()));
    ASSERT_FALSE(Await([&](auto done) { store->SetAppKey("k", "s", done); }));
    ASSERT_FALSE(Await([&](auto done) { store->AddToken({"hash", "anna", "merchant", "d", 77}, 0, done); }));
    Open();
    EXPECT_EQ(store->FindUser("anna")->belongType, "merchant");
    EXPECT_EQ(store->FindConfiguration("anna").configuration, SampleConfiguration());
    EXPECT_EQ(store->ListAppKeys(), (std::map<std::string, std::string, std::less<>>{{"k", "s"}}));
    EXPECT_EQ(store->FindToken("hash")->expiresAt, 77);
    EXPECT_FALSE(store->FindToken("other"));
    EXPECT_FALSE(store->FindUser("Anna"));
}

TEST_F(SqliteStoreTest, UserWithoutConfigurationHasRevisionZero)
{
    Open();
    EXPECT_EQ(store->FindConfiguration("nobody").revision, 0);
    EXPECT_TRUE(store->ListRevisions("nobody").empty());
}

TEST_F(SqliteStoreTest, TheLastTwentyRevisionsAreKept)
{
    Open();
    AddUser("anna");
    AddUser("bert");
    ASSERT_FALSE(Put("bert", Named("other")));
    for (int i = 1; i <= 25; ++i) {
        now = 1000 + i;
        ASSERT_FALSE(Put("anna", Named(std::to_string(i))));
    }
    const auto revisions = store->ListRevisions("anna");
    ASSERT_EQ(revisions.size(), 20U);
    for (std::size_t i = 0; i < revisions.size(); ++i) {
        const int expected = 25 - static_cast<int>(i);
        EXPECT_EQ(revisions[i].revision, expected);
        EXPECT_EQ(revisions[i].configuration, Named(std::to_string(expected)));
        EXPECT_EQ(revisions[i].writtenAt, 1000 + expected);
        EXPECT_EQ(revisions[i].author, "user");
    }
    EXPECT_EQ(store->ListRevisions("bert").size(), 1U);
}

TEST_F(SqliteStoreTest, ConcurrentWritesOfManyUsersKeepTheOrderOfEach)
{
    Open();
    constexpr int users = 8;
    constexpr int each = 40;
    for (int user = 0; user < users; ++user) {
        AddUser("user" + std::to_string(user));
    }
    std::atomic<int> answered{0};
    std::vector<std::thread> threads;
    for (int user = 0; user < users; ++user) {
        threads.emplace_back([&, user] {
            for (int i = 1; i <= each; ++i) {
                store->EditConfiguration(
                    "user" + std::to_string(user), "user",
                    [i](const AutoRunConfiguration&) { return Named(std::to_string(i)); },
                    [&](const std::optional<Refusal>& refusal) {
                        EXPECT_FALSE(refusal);
                        ++answered;
                    });
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    Open(); // closes first, which waits for the writes
    EXPECT_EQ(answered, users * each);
    for (int user = 0; user < users; ++user) {
        const auto stored = store->FindConfiguration("user" + std::to_string(user));
        EXPECT_EQ(stored.revision, each);
        EXPECT_EQ(stored.configuration, Named(std::to_string(each)));
    }
}

TEST_F(SqliteStoreTest, EditSeesWhatTheWriteBeforeItStored)
{
    Open();
    AddUser("anna");
    std::vector<std::future<void>> done;
    for (int i = 0; i < 5; ++i) {
        const auto promise = std::make_shared<std::promise<void>>();
        done.push_back(promise->get_future());
        store->EditConfiguration(
            "anna", "user",
            [i](const AutoRunConfiguration& stored) {
                AutoRunConfiguration next = stored;
                next.customItems.push_back(CustomEntry(std::to_string(i)));
                return next;
            },
            [promise](const std::optional<Refusal>&) { promise->set_value(); });
    }
    for (auto& future : done) {
        future.wait();
    }
    EXPECT_EQ(store->FindConfiguration("anna").configuration.customItems.size(), 5U);
}

TEST_F(SqliteStoreTest, ConfigurationOfAnUnknownUserIsNotStored)
{
    Open();
    EXPECT_EQ(Put("nobody", SampleConfiguration())->code, ErrorCode::StoreFailed);
    EXPECT_EQ(store->FindConfiguration("nobody").revision, 0);
}

TEST_F(SqliteStoreTest, UserThatExistsIsNotAddedAgain)
{
    Open();
    AddUser("anna");
    const auto refusal = Await([&](auto done) { store->AddUser({"anna", "other", "x"}, done); });
    ASSERT_TRUE(refusal);
    EXPECT_THAT(refusal->message, HasSubstr("already"));
    EXPECT_EQ(store->FindUser("anna")->belongType, "merchant");
}

TEST_F(SqliteStoreTest, PasswordOfAnUnknownUserIsRefused)
{
    Open();
    EXPECT_TRUE(Await([&](auto done) { store->SetPassword("nobody", "x", done); }));
}

TEST_F(SqliteStoreTest, LongExpiredTokensAreDroppedAtTheNextLogin)
{
    Open();
    AddUser("anna");
    ASSERT_FALSE(Await([&](auto done) { store->AddToken({"old", "anna", "m", "d", 100}, 0, done); }));
    ASSERT_FALSE(Await([&](auto done) { store->AddToken({"new", "anna", "m", "d", 900}, 101, done); }));
    EXPECT_FALSE(store->FindToken("old"));
    EXPECT_TRUE(store->FindToken("new"));
}

TEST_F(SqliteStoreTest, LoginFailuresAreCountedWithinTheSpanAndDroppedWhenOld)
{
    Open();
    for (const UnixTime at : {100, 200, 300}) {
        ASSERT_FALSE(Await([&](auto done) { store->AddLoginFailure("anna", at, 0, done); }));
    }
    EXPECT_EQ(store->CountLoginFailures("anna", 0), 3U);
    EXPECT_EQ(store->CountLoginFailures("anna", 100), 2U);
    EXPECT_EQ(store->CountLoginFailures("bert", 0), 0U);
    EXPECT_EQ(store->FindLoginFailure("anna", 1), 300);
    EXPECT_EQ(store->FindLoginFailure("anna", 3), 100);
    EXPECT_FALSE(store->FindLoginFailure("anna", 4));
    ASSERT_FALSE(Await([&](auto done) { store->AddLoginFailure("bert", 400, 250, done); }));
    EXPECT_EQ(store->CountLoginFailures("anna", 0), 1U);
}

TEST_F(SqliteStoreTest, CatalogueIsReplacedAsAWhole)
{
    Open();
    ASSERT_FALSE(Await([&](auto done) {
        store->ReplaceApps({{"A", "a", "", "x", 0}, {"B", "b", "", "x", 1}}, done);
    }));
    ASSERT_FALSE(Await([&](auto done) { store->ReplaceApps({{"C", "c", "", "x", 0}}, done); }));
    ASSERT_EQ(store->ListApps().size(), 1U);
    EXPECT_EQ(store->ListApps()[0].name, "C");
    EXPECT_TRUE(Await([&](auto done) {
        store->ReplaceApps({{"D", "d", "", "x", 0}, {"E", "d", "", "x", 0}}, done);
    }));
    EXPECT_EQ(store->ListApps()[0].name, "C") << "a refused catalogue leaves the one before";
}

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
                const auto refusal = Put("user" + std::to_string(user), Named(name));
                if (refusal) {
                    EXPECT_EQ(refusal->code, ErrorCode::StoreFailed);
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

TEST_F(SqliteStoreTest, StoredDocumentThatCannotBeReadIsDamage)
{
    Open();
    AddUser("anna");
    ASSERT_FALSE(Put("anna", SampleConfiguration()));
    {
        SqliteConnection other(options.file, SqliteConnection::Mode::ReadWrite,
                               std::chrono::milliseconds(1000));
        other.Execute("UPDATE configuration SET document = '{'");
    }
    EXPECT_THROW(static_cast<void>(store->FindConfiguration("anna")), StoreError);
    EXPECT_EQ(Put("anna", SampleConfiguration())->code, ErrorCode::StoreFailed);
}

} // namespace TLGateway

#include "store/postgres/PostgresStore.h"

#include "PostgresConnection.h"
#include "store/StoreError.h"
#include "support/Await.h"
#include "support/LogCapture.h"
#include "support/PostgresServer.h"
#include "support/SampleConfiguration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace TLGateway {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class PostgresStoreTest : public testing::Test
{
protected:
    std::unique_ptr<PostgresStore> Open(const std::string& at, bool mustExist = false)
    {
        PostgresStore::Options options;
        options.url = at;
        options.mustExist = mustExist;
        return std::make_unique<PostgresStore>(options, log.Logger());
    }

    std::string OpenFailure(const std::string& at, bool mustExist = false)
    {
        try {
            Open(at, mustExist);
        } catch (const StoreError& error) {
            return error.what();
        }
        ADD_FAILURE() << "the store was opened";
        return {};
    }

    PostgresServer& server = PostgresServer::Shared();
    const std::string url = server.NewDatabase();
    LogCapture log;
};

TEST_F(PostgresStoreTest, TwoStoresOnOneDatabaseLoseNoEdit)
{
    constexpr int users = 3;
    constexpr int threadsOfEach = 4;
    constexpr int each = 10;
    const auto first = Open(url);
    const auto second = Open(url);
    for (int user = 0; user < users; ++user) {
        const UserRecord record{"user" + std::to_string(user), "m", "h"};
        ASSERT_FALSE(Await([&](auto done) { first->AddUser(record, done); }));
    }
    // Every edit adds an entry to what it finds.
    std::vector<std::thread> threads;
    for (int i = 0; i < threadsOfEach; ++i) {
        for (IStore* store : {static_cast<IStore*>(first.get()), static_cast<IStore*>(second.get())}) {
            const std::string name = (store == first.get() ? "first" : "second") + std::to_string(i);
            threads.emplace_back([=] {
                for (int n = 0; n < each; ++n) {
                    for (int user = 0; user < users; ++user) {
                        const std::string id = name + '-' + std::to_string(n);
                        EXPECT_FALSE(Await([&](auto done) {
                            store->EditConfiguration(
                                "user" + std::to_string(user), "user",
                                [&](const AutoRunConfiguration& stored) {
                                    AutoRunConfiguration next = stored;
                                    next.customItems.push_back(CustomEntry(id));
                                    return next;
                                },
                                done);
                        }));
                    }
                }
            });
        }
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    constexpr std::size_t all = std::size_t{2} * threadsOfEach * each;
    for (int user = 0; user < users; ++user) {
        const std::string pin = "user" + std::to_string(user);
        const auto revisions = second->ListRevisions(pin);
        ASSERT_EQ(revisions.size(), 20U);
        for (std::size_t i = 0; i < revisions.size(); ++i) {
            EXPECT_EQ(revisions[i].revision, static_cast<std::int64_t>(all - i));
            EXPECT_EQ(revisions[i].configuration.customItems.size(), all - i);
        }
        std::set<std::string> ids;
        for (const AutoRunEntry& entry : first->FindConfiguration(pin).configuration.customItems) {
            ids.insert(entry.itemId);
        }
        EXPECT_EQ(ids.size(), all);
    }
}

TEST_F(PostgresStoreTest, OfManyWhoAddOneUserExactlyOneSucceeds)
{
    std::vector<std::unique_ptr<PostgresStore>> stores;
    stores.reserve(4);
    for (int i = 0; i < 4; ++i) {
        stores.push_back(Open(url));
    }
    for (int round = 0; round < 10; ++round) {
        std::atomic<int> added{0};
        std::atomic<int> refused{0};
        std::vector<std::thread> threads;
        threads.reserve(stores.size());
        for (const auto& store : stores) {
            threads.emplace_back([&] {
                const UserRecord record{"user" + std::to_string(round), "m", "h"};
                const auto failure = Await([&](auto done) { store->AddUser(record, done); });
                if (!failure) {
                    ++added;
                } else if (failure->reason == WriteFailure::Reason::UserExists) {
                    ++refused;
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(added, 1);
        EXPECT_EQ(refused, 3);
    }
}

TEST_F(PostgresStoreTest, FailedLoginsAndTokensAreThoseOfAllStores)
{
    const auto first = Open(url);
    const auto second = Open(url);
    ASSERT_FALSE(Await([&](auto done) { first->AddUser({"anna", "m", "h"}, done); }));
    for (int i = 0; i < 5; ++i) {
        ASSERT_FALSE(Await([&](auto done) { first->AddLoginFailure("anna", 100 + i, 0, done); }));
        ASSERT_FALSE(Await([&](auto done) { second->AddLoginFailure("anna", 100 + i, 0, done); }));
    }
    EXPECT_EQ(first->CountLoginFailures("anna", 0), 10U);
    EXPECT_EQ(second->CountLoginFailures("anna", 0), 10U);
    EXPECT_EQ(second->FindLoginFailure("anna", 10), 100);
    ASSERT_FALSE(Await([&](auto done) { second->AddToken({"t", "anna", "m", "d", 900}, 0, done); }));
    EXPECT_EQ(first->CountLoginFailures("anna", 0), 0U);
    EXPECT_TRUE(first->FindToken("t"));
    ASSERT_FALSE(Await([&](auto done) { first->SetPassword("anna", "x", done); }));
    EXPECT_FALSE(second->FindToken("t"));
}

// What several gateways drop at once, and what they replace at once, in all orders.
TEST_F(PostgresStoreTest, StoresInEachOthersWayAllGetThrough)
{
    std::vector<std::unique_ptr<PostgresStore>> stores;
    stores.reserve(3);
    for (int i = 0; i < 3; ++i) {
        stores.push_back(Open(url));
    }
    for (const char* pin : {"anna", "bert"}) {
        ASSERT_FALSE(Await([&](auto done) { stores[0]->AddUser({pin, "m", "h"}, done); }));
    }
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < stores.size(); ++i) {
        threads.emplace_back([&, i] {
            IStore& store = *stores[i];
            const std::string own = std::to_string(i);
            for (int n = 0; n < 15; ++n) {
                const std::string pin = (n + static_cast<int>(i)) % 2 == 0 ? "anna" : "bert";
                const TokenRecord token{own + '-' + std::to_string(n), pin, "m", "d", n};
                const int number = (n + static_cast<int>(i)) % 3;
                EXPECT_FALSE(Await([&](auto done) { store.AddToken(token, n - 2, done); }));
                EXPECT_FALSE(Await([&](auto done) { store.AddLoginFailure(pin, n, n - 2, done); }));
                EXPECT_FALSE(Await([&](auto done) { store.SetSwitch({number, true, true}, done); }));
                EXPECT_FALSE(Await([&](auto done) {
                    store.ReplaceApps({{own, "one", "", "x", 0}, {own, "two", "", "x", 0}}, done);
                }));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    const auto apps = stores[0]->ListApps();
    ASSERT_EQ(apps.size(), 2U);
    EXPECT_EQ(apps[0].name, apps[1].name);
    EXPECT_EQ(stores[0]->ListSwitches().size(), 3U);
}

TEST_F(PostgresStoreTest, WritesOfABatchThatWaitCrosswiseAreDoneInTheEnd)
{
    const auto first = Open(url);
    const auto second = Open(url);
    std::vector<std::thread> threads;
    for (IStore* store : {static_cast<IStore*>(first.get()), static_cast<IStore*>(second.get())}) {
        threads.emplace_back([&first, store] {
            for (int n = 0; n < 60; ++n) {
                const int number = store == first.get() ? n % 20 : 19 - n % 20;
                store->SetSwitch({number, true, true},
                                 [](const std::optional<WriteFailure>& failure) { EXPECT_FALSE(failure); });
            }
            store->Close();
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(first->ListSwitches().size(), 20U);
}

TEST_F(PostgresStoreTest, ReadersBeyondTheConnectionsWaitTheirTurn)
{
    PostgresStore::Options options;
    options.url = url;
    options.readers = 2;
    PostgresStore store(options, log.Logger());
    ASSERT_FALSE(Await([&](auto done) { store.AddUser({"anna", "m", "h"}, done); }));
    std::vector<std::thread> threads;
    threads.reserve(10);
    for (int i = 0; i < 10; ++i) {
        threads.emplace_back([&] {
            for (int n = 0; n < 30; ++n) {
                EXPECT_TRUE(store.FindUser("anna"));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    PostgresConnection outside(PostgresTarget(url), {});
    EXPECT_LE(std::stoi(outside.SingleValue("SELECT count(*) FROM pg_stat_activity WHERE datname = "
                                            "current_database() AND pid <> pg_backend_pid()")),
              3)
        << "two to read with and one to write with";
}

TEST_F(PostgresStoreTest, ClosedStoreLeavesNoReceiptBehind)
{
    const auto store = Open(url);
    ASSERT_FALSE(Await([&](auto done) { store->SetAppKey("k", "s", done); }));
    PostgresConnection outside(PostgresTarget(url), {});
    EXPECT_EQ(outside.SingleValue("SELECT count(*) FROM write_receipt"), "1");
    store->Close();
    EXPECT_EQ(outside.SingleValue("SELECT count(*) FROM write_receipt"), "0");
    outside.Execute("INSERT INTO write_receipt VALUES ('a', 1, now() - interval '31 days'), "
                    "('b', 1, now() - interval '29 days')");
    const auto next = Open(url);
    EXPECT_EQ(outside.SingleValue("SELECT string_agg(writer, ',') FROM write_receipt"), "b");
}

TEST_F(PostgresStoreTest, WriteIsOnDiskEvenWhereTheServersDefaultIsNot)
{
    server.Execute("ALTER ROLE gateway SET synchronous_commit = off");
    EXPECT_EQ(PostgresConnection(PostgresTarget(url), {}).SingleValue("SHOW synchronous_commit"), "on");
    server.Execute("ALTER ROLE gateway SET synchronous_commit = remote_apply");
    EXPECT_EQ(PostgresConnection(PostgresTarget(url), {}).SingleValue("SHOW synchronous_commit"),
              "remote_apply");
    server.Execute("ALTER ROLE gateway RESET synchronous_commit");
}

TEST_F(PostgresStoreTest, UnknownDatabaseSaysWhatToDo)
{
    EXPECT_THAT(OpenFailure(server.Url("nowhere")),
                AllOf(HasSubstr("postgresql://gateway@/nowhere"), HasSubstr("create it with createdb")));
}

TEST_F(PostgresStoreTest, UnknownRoleSaysWhatToDo)
{
    EXPECT_THAT(OpenFailure(server.Url("postgres", "nobody")),
                AllOf(HasSubstr("\"nobody\" does not exist"), HasSubstr("check user and password")));
}

TEST_F(PostgresStoreTest, UnknownSocketSaysWhatToDo)
{
    EXPECT_THAT(OpenFailure("postgresql://gateway@/db?host=/nowhere"),
                AllOf(HasSubstr("database postgresql://gateway@/db?host=/nowhere: opening failed"),
                      HasSubstr("The server cannot be reached")));
}

TEST_F(PostgresStoreTest, WrongAndMissingPasswordSayWhatToDoAndNotThePassword)
{
    PostgresServer guarded;
    guarded.Execute("CREATE ROLE anna LOGIN PASSWORD 'richtig'");
    guarded.Execute("CREATE DATABASE shop OWNER anna");
    guarded.RequirePasswords();
    const auto with = [&](const std::string& password) {
        std::string at = guarded.Url("shop", "anna");
        at.insert(at.find('@'), password.empty() ? "" : ":" + password);
        return at;
    };
    EXPECT_THAT(OpenFailure(with("geheim")),
                AllOf(HasSubstr("password authentication failed"), HasSubstr("check user and password"),
                      Not(HasSubstr("geheim"))));
    EXPECT_THAT(OpenFailure(with({})),
                AllOf(HasSubstr("no password supplied"), HasSubstr("check user and password")));
    EXPECT_NO_THROW(Open(with("richtig")));
    const std::string failure = log.Text();
    EXPECT_THAT(failure, AllOf(Not(HasSubstr("richtig")), Not(HasSubstr("geheim"))));
}

TEST_F(PostgresStoreTest, RoleWithoutTheRightToMakeTablesIsToldSo)
{
    server.Execute("CREATE ROLE guest LOGIN");
    std::string at = url;
    at.replace(at.find("gateway@"), 7, "guest");
    EXPECT_THAT(OpenFailure(at), AllOf(HasSubstr("permission denied"), HasSubstr("make it the owner")));
    Open(url);
    EXPECT_THAT(OpenFailure(at), AllOf(HasSubstr("permission denied"), HasSubstr("make it the owner")))
        << "a schema that is another role's";
    server.Execute("DROP ROLE guest");
}

TEST_F(PostgresStoreTest, EmptyDatabaseIsRefusedWhenItMustExist)
{
    EXPECT_THAT(OpenFailure(url, true), HasSubstr("is empty"));
    Open(url);
    EXPECT_NO_THROW(Open(url, true));
}

TEST_F(PostgresStoreTest, DatabaseOfANewerGatewayIsRefused)
{
    Open(url);
    PostgresConnection(PostgresTarget(url), {}).Execute("UPDATE schema_version SET version = 99");
    EXPECT_THAT(OpenFailure(url), AllOf(HasSubstr("newer gateway (schema 99"), HasSubstr(url)));
}

TEST_F(PostgresStoreTest, DatabaseOfAnotherProgramIsRefused)
{
    PostgresConnection(PostgresTarget(url), {})
        .Execute("CREATE SCHEMA other; CREATE TABLE other.bookmarks (x int)");
    EXPECT_THAT(OpenFailure(url), HasSubstr("another program"));
}

TEST_F(PostgresStoreTest, DatabaseThatCannotKeepEveryTextIsRefused)
{
    EXPECT_THAT(OpenFailure(server.NewDatabase("ENCODING 'LATIN1' LOCALE 'C'")),
                AllOf(HasSubstr("LATIN1"), HasSubstr("encoding UTF8")));
}

TEST_F(PostgresStoreTest, ServerThatTakesNoWritesIsToldSo)
{
    server.Execute("ALTER ROLE gateway SET default_transaction_read_only = on");
    EXPECT_THAT(OpenFailure(url), HasSubstr("The server takes no writes: name the primary"));
    server.Execute("ALTER ROLE gateway RESET default_transaction_read_only");
    EXPECT_NO_THROW(Open(url));
}

} // namespace TLGateway

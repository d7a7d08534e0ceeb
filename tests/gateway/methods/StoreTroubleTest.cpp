#include "support/TestGateway.h"

#include "SqliteConnection.h"
#include "support/SampleConfiguration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>
#include <string>

namespace TLGateway {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

AutoRunConfiguration LargeConfiguration(char c)
{
    AutoRunConfiguration configuration;
    for (int i = 0; i < 5; ++i) {
        configuration.customItems.push_back(CustomEntry(std::string(1, c) + std::to_string(i)));
        configuration.customItems.back().url = std::string(2048, c);
    }
    return configuration;
}

} // namespace

TEST(StoreTroubleTest, DiskFullIs5002AndLeavesTheLastConfiguration)
{
    SqliteStore::Options options;
    options.maxPages = 40;
    TestGateway gateway(options);
    const std::string token = gateway.TokenOf("anna");
    TestGateway::Reply reply;
    char last = 0;
    for (char c = 'a'; c <= 'z'; ++c) {
        reply = gateway.Set("anna", token, LargeConfiguration(c));
        if (reply.code != 0) {
            break;
        }
        last = c;
    }
    EXPECT_EQ(reply.code, 5002);
    EXPECT_EQ(reply.httpStatus, 500);
    EXPECT_THAT(reply.message, Not(HasSubstr(gateway.DatabaseFile()))) << "details are for the log only";
    EXPECT_THAT(gateway.Log(),
                AllOf(HasSubstr("storing a configuration failed"), HasSubstr(gateway.DatabaseFile()),
                      HasSubstr("The disk is full: free space")));
    ASSERT_NE(last, 0);
    EXPECT_EQ(gateway.Store().FindConfiguration("anna").configuration, LargeConfiguration(last));
    EXPECT_EQ(gateway.Get("anna", token).code, 0) << "reads go on";
}

TEST(StoreTroubleTest, LockedDatabaseIs5002AndGoesOnWhenTheLockIsGone)
{
    SqliteStore::Options options;
    options.busyTimeout = std::chrono::milliseconds(50);
    TestGateway gateway(options);
    gateway.Import("anna", SampleConfiguration());
    const std::string token = gateway.TokenOf("anna");
    AutoRunConfiguration changed = SampleConfiguration();
    changed.customItems.clear();
    {
        SqliteConnection other(gateway.DatabaseFile(), SqliteConnection::Mode::ReadWrite,
                               std::chrono::milliseconds(0));
        other.Execute("BEGIN EXCLUSIVE");
        const auto reply = gateway.Set("anna", token, changed);
        EXPECT_EQ(reply.code, 5002);
        EXPECT_THAT(gateway.Log(),
                    AllOf(HasSubstr("The database is locked"), HasSubstr(gateway.DatabaseFile())));
        EXPECT_EQ(gateway.Get("anna", token).code, 0) << "reads go on";
    }
    EXPECT_EQ(gateway.Store().FindConfiguration("anna").configuration, SampleConfiguration());
    EXPECT_EQ(gateway.Set("anna", token, changed).code, 0);
}

TEST(StoreTroubleTest, FailedLoginThatCannotBeNotedIs5002SoThatAFullDiskAllowsNoGuessing)
{
    SqliteStore::Options options;
    options.busyTimeout = std::chrono::milliseconds(50);
    TestGateway gateway(options);
    SqliteConnection other(gateway.DatabaseFile(), SqliteConnection::Mode::ReadWrite,
                           std::chrono::milliseconds(0));
    other.Execute("BEGIN EXCLUSIVE");
    EXPECT_EQ(gateway.Login("anna", "nope").code, 5002);
    EXPECT_EQ(gateway.Login("anna", "pw").code, 5002);
}

TEST(StoreTroubleTest, FullWriteQueueIs5001)
{
    SqliteStore::Options options;
    options.queueLimit = 1;
    TestGateway gateway(options);
    gateway.Import("anna", SampleConfiguration());
    const std::string token = gateway.TokenOf("anna");

    std::promise<void> isBlocked;
    std::promise<void> release;
    auto released = release.get_future();
    std::promise<void> firstDone;
    std::promise<void> secondDone;
    gateway.Store().EditConfiguration(
        "anna", "operator",
        [&](const AutoRunConfiguration& stored) {
            isBlocked.set_value();
            released.wait();
            return stored;
        },
        [&](const std::optional<WriteFailure>&) { firstDone.set_value(); });
    isBlocked.get_future().wait();
    gateway.Store().SetSwitch({1, true, true},
                              [&](const std::optional<WriteFailure>&) { secondDone.set_value(); });

    const auto reply = gateway.Set("anna", token, AutoRunConfiguration());
    EXPECT_EQ(reply.code, 5001);
    EXPECT_EQ(reply.httpStatus, 503);
    release.set_value();
    firstDone.get_future().wait();
    secondDone.get_future().wait();
    EXPECT_EQ(gateway.Store().FindConfiguration("anna").configuration, SampleConfiguration());
    EXPECT_EQ(gateway.Set("anna", token, AutoRunConfiguration()).code, 0);
}

TEST(StoreTroubleTest, WriteAfterTheStoreIsClosedIs5001)
{
    TestGateway gateway;
    const std::string token = gateway.TokenOf("anna");
    gateway.Store().Close();
    EXPECT_EQ(gateway.Set("anna", token, AutoRunConfiguration()).code, 5001);
}

TEST(StoreTroubleTest, DamagedPagesAre5002ForReadsAndWrites)
{
    TemporaryFolder folder;
    const std::string file = folder.File("damaged.db");
    const LogCapture log;
    const auto await = [](const std::function<void(IStore::WriteDone)>& start) {
        std::promise<std::optional<WriteFailure>> promise;
        start([&](const std::optional<WriteFailure>& failure) { promise.set_value(failure); });
        return promise.get_future().get();
    };
    {
        SqliteStore store({file}, log.Logger());
        for (int i = 0; i < 50; ++i) {
            const std::string pin = "user" + std::to_string(i);
            ASSERT_FALSE(await([&](auto done) { store.AddUser({pin, "t", std::string(500, 'h')}, done); }));
        }
    }
    SqliteStore store({file}, log.Logger());
    DamageFile(file, 4096);
    EXPECT_THROW(static_cast<void>(store.FindConfiguration("user1")), std::runtime_error);
    const auto failure = await([&](auto done) {
        store.EditConfiguration(
            "user1", "user", [](const AutoRunConfiguration& stored) { return stored; }, done);
    });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->reason, WriteFailure::Reason::StoreFailed);
    EXPECT_THAT(log.Text(), AllOf(HasSubstr("The database is damaged: stop the gateway"), HasSubstr(file)));
}

} // namespace TLGateway

#include "records/ConfigurationJson.h"
#include "store/sqlite/SqliteStore.h"
#include "support/LogCapture.h"
#include "support/Program.h"
#include "support/RemoteUser.h"
#include "support/SampleConfiguration.h"
#include "support/ServingProgram.h"

#include <boost/json/serialize.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

namespace TLGateway {

using testing::AllOf;
using testing::HasSubstr;

// Several users write all the time while the program ends. The name of each user's one entry counts the
// user's writes, so what is stored can be compared with what was answered.
class GatewayEndTest : public testing::Test
{
protected:
    static constexpr int Users = 6;

    struct Progress
    {
        std::atomic<int> sent{0};
        std::atomic<int> answered{0};
    };

    static std::string Pin(int user) { return "user" + std::to_string(user); }

    void SetUp() override
    {
        ASSERT_EQ(RunProgram({"key", "set", "tl-client", "--database", "sqlite:" + file},
                             "tl-client-development-secret\n")
                      .exitCode,
                  0);
        for (int user = 0; user < Users; ++user) {
            ASSERT_EQ(
                RunProgram({"user", "add", Pin(user), "--belong-type", "m", "--database", "sqlite:" + file},
                           "pw\n")
                    .exitCode,
                0);
        }
        program = std::make_unique<ServingProgram>("sqlite:" + file);
        for (int user = 0; user < Users; ++user) {
            writers.emplace_back([this, user] { WriteUntilTheEnd(user); });
        }
    }

    void TearDown() override { JoinWriters(); }

    void WriteUntilTheEnd(int user)
    {
        Progress& own = progress[static_cast<std::size_t>(user)];
        try {
            RemoteUser remote(program->Port(), Pin(user), "m");
            remote.Login("pw");
            for (;;) {
                const int number = ++own.sent;
                const AutoRunConfiguration configuration{{}, {CustomEntry("c", std::to_string(number))}, {}};
                if (remote.Set(boost::json::serialize(ToJson(configuration)))) {
                    own.answered = number;
                }
            }
        } catch (const std::exception&) {
            // The program has ended.
        }
    }

    void AwaitWrites()
    {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        for (const Progress& each : progress) {
            while (each.answered < 20) {
                ASSERT_LT(std::chrono::steady_clock::now(), deadline)
                    << "no writes are answered: " << program->Log();
                std::this_thread::yield();
            }
        }
    }

    void JoinWriters()
    {
        for (std::thread& writer : writers) {
            if (writer.joinable()) {
                writer.join();
            }
        }
    }

    void ExpectEveryAnsweredWrite()
    {
        const LogCapture log;
        SqliteStore::Options options;
        options.file = file;
        options.checkIntegrity = true;
        SqliteStore store(options, log.Logger());
        for (int user = 0; user < Users; ++user) {
            const Progress& own = progress[static_cast<std::size_t>(user)];
            const StoredConfiguration stored = store.FindConfiguration(Pin(user));
            ASSERT_EQ(stored.configuration.customItems.size(), 1U);
            const int number = std::stoi(stored.configuration.customItems[0].name);
            EXPECT_GE(number, own.answered) << "an answered write of " << Pin(user) << " is lost";
            EXPECT_LE(number, own.sent);
            EXPECT_EQ(stored.revision, number) << "a write was stored twice or left out";
        }
    }

    TemporaryFolder folder;
    std::string file = folder.File("gateway.db");
    std::vector<Progress> progress = std::vector<Progress>(Users);
    std::unique_ptr<ServingProgram> program;
    std::vector<std::thread> writers;
};

#ifndef _WIN32
TEST_F(GatewayEndTest, SigtermWhileWritesAreInFlightLosesNoAnsweredWrite)
{
    AwaitWrites();
    program->Terminate();
    EXPECT_EQ(program->Wait(), 0);
    JoinWriters();
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::u8path(file + "-wal"))) << "the log was not moved";
    EXPECT_EQ(program->RestOfOutput(), "") << "exactly one line goes to standard output";
    EXPECT_THAT(program->Log(), AllOf(HasSubstr("finishing what is in flight"), HasSubstr("stopped")));
    ExpectEveryAnsweredWrite();
}
#endif

TEST_F(GatewayEndTest, KillWhileWritesAreInFlightLosesNoAnsweredWrite)
{
    AwaitWrites();
    program->Kill();
    program->Wait();
    JoinWriters();
    ExpectEveryAnsweredWrite();
}

TEST_F(GatewayEndTest, GatewayStartsAgainAfterAKill)
{
    AwaitWrites();
    program->Kill();
    program->Wait();
    JoinWriters();
    const ServingProgram again("sqlite:" + file);
    RemoteUser remote(again.Port(), Pin(0), "m");
    remote.Login("pw");
    EXPECT_EQ(remote.Get().at("code"), "0");
}

} // namespace TLGateway

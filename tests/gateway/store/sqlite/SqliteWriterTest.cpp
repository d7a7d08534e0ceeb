#include "SqliteWriter.h"

#include "store/rows/WriteRefused.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace TLGateway {

using testing::HasSubstr;

// A writer on a table t with unique numbers, and a second connection that sees what is committed.
class SqliteWriterTest : public testing::Test
{
protected:
    SqliteWriterTest() { Start(1024); }

    void Start(std::size_t queueLimit)
    {
        writer.reset();
        auto connection = std::make_unique<SqliteConnection>(file, SqliteConnection::Mode::ReadWrite,
                                                             std::chrono::milliseconds(50));
        connection->Execute("PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL;"
                            "CREATE TABLE IF NOT EXISTS t (n INTEGER PRIMARY KEY, thread INTEGER) STRICT");
        writer = std::make_unique<SqliteWriter>(std::move(connection), file, queueLimit, log.Logger());
        outside = std::make_unique<SqliteConnection>(file, SqliteConnection::Mode::ReadOnly,
                                                     std::chrono::milliseconds(50));
    }

    static IEngine::Work Insert(int n, int thread = 0)
    {
        return [n, thread](IConnection& connection) {
            connection.Query("INSERT INTO t VALUES ($1, $2)")->BindInteger(n).BindInteger(thread).Run();
        };
    }

    // Occupies the writer until Release, so that what is submitted meanwhile goes into one batch.
    void Block()
    {
        std::promise<void> isBlocked;
        release = std::promise<void>();
        writer->Submit({"blocking",
                        {},
                        [&isBlocked, released = release.get_future().share()](IConnection&) {
                            isBlocked.set_value();
                            released.wait();
                        },
                        [](const std::optional<WriteFailure>&) {},
                        std::nullopt});
        isBlocked.get_future().wait();
    }

    void Release() { release.set_value(); }

    std::future<std::optional<WriteFailure>> Submit(IEngine::Work write)
    {
        auto promise = std::make_shared<std::promise<std::optional<WriteFailure>>>();
        auto future = promise->get_future();
        writer->Submit(
            {"writing",
             {},
             std::move(write),
             [promise](const std::optional<WriteFailure>& failure) { promise->set_value(failure); },
             std::nullopt});
        return future;
    }

    [[nodiscard]] std::string Committed() { return outside->SingleValue("SELECT count(*) FROM t"); }

    TemporaryFolder folder;
    std::string file = folder.File("a.db");
    LogCapture log;
    std::unique_ptr<SqliteConnection> outside;
    std::promise<void> release;
    std::unique_ptr<SqliteWriter> writer;
};

TEST_F(SqliteWriterTest, WriteIsCommittedWhenItIsAnswered)
{
    EXPECT_FALSE(Submit(Insert(1)).get());
    EXPECT_EQ(Committed(), "1");
}

TEST_F(SqliteWriterTest, WritesThatWaitTogetherAreCommittedTogether)
{
    Block();
    std::vector<std::future<std::optional<WriteFailure>>> answers;
    std::vector<std::string> committedSeen(10);
    for (int n = 0; n < 10; ++n) {
        answers.push_back(Submit([this, n, &committedSeen](IConnection& connection) {
            Insert(n)(connection);
            committedSeen[static_cast<std::size_t>(n)] = Committed();
            EXPECT_EQ(static_cast<SqliteConnection&>(connection).SingleValue("SELECT count(*) FROM t"),
                      std::to_string(n + 1));
        }));
    }
    Release();
    for (auto& answer : answers) {
        EXPECT_FALSE(answer.get());
    }
    EXPECT_THAT(committedSeen, testing::Each("0"));
    EXPECT_EQ(Committed(), "10");
}

TEST_F(SqliteWriterTest, FailingWritesOfABatchHarmNoOther)
{
    Block();
    auto first = Submit(Insert(1));
    auto duplicate = Submit([](IConnection& connection) {
        Insert(2)(connection);
        Insert(1)(connection);
    });
    auto refused = Submit([](IConnection& connection) {
        Insert(3)(connection);
        throw WriteRefused(WriteFailure(WriteFailure::Reason::EditRefused, "no"));
    });
    auto thrown = Submit([](IConnection& connection) {
        Insert(4)(connection);
        throw std::runtime_error("oops");
    });
    auto last = Submit(Insert(5));
    Release();
    EXPECT_FALSE(first.get());
    EXPECT_EQ(duplicate.get()->reason, WriteFailure::Reason::StoreFailed);
    EXPECT_EQ(refused.get()->message, "no");
    EXPECT_EQ(thrown.get()->reason, WriteFailure::Reason::Internal);
    EXPECT_FALSE(last.get());
    EXPECT_EQ(outside->SingleValue("SELECT group_concat(n) FROM t"), "1,5");
    EXPECT_THAT(log.Text(), HasSubstr("UNIQUE constraint failed"));
}

TEST_F(SqliteWriterTest, WriteThatTakesTheTransactionWithItHarmsNoOther)
{
    Block();
    auto first = Submit(Insert(1));
    auto culprit = Submit([](IConnection& connection) {
        // What SQLite does by itself when a disk is full at the wrong moment.
        static_cast<SqliteConnection&>(connection).Execute("ROLLBACK");
        throw SqliteError(13, "database or disk is full");
    });
    auto last = Submit(Insert(2));
    Release();
    EXPECT_FALSE(first.get());
    EXPECT_EQ(culprit.get()->reason, WriteFailure::Reason::StoreFailed);
    EXPECT_FALSE(last.get());
    EXPECT_EQ(outside->SingleValue("SELECT group_concat(n) FROM t"), "1,2");
    EXPECT_THAT(log.Text(), HasSubstr("The disk is full: free space"));
}

TEST_F(SqliteWriterTest, ManyThreadsAreAllAnsweredInTheOrderOfEach)
{
    constexpr int threads = 8;
    constexpr int each = 100;
    std::atomic<int> answered{0};
    std::vector<std::vector<int>> order(threads);
    std::vector<std::thread> running;
    for (int thread = 0; thread < threads; ++thread) {
        running.emplace_back([&, thread] {
            for (int i = 0; i < each; ++i) {
                writer->Submit({"writing",
                                {},
                                Insert(thread * each + i, thread),
                                [&, thread, i](const std::optional<WriteFailure>& failure) {
                                    EXPECT_FALSE(failure);
                                    order[static_cast<std::size_t>(thread)].push_back(i);
                                    ++answered;
                                },
                                std::nullopt});
            }
        });
    }
    for (std::thread& thread : running) {
        thread.join();
    }
    writer->Close();
    EXPECT_EQ(answered, threads * each);
    EXPECT_EQ(Committed(), std::to_string(threads * each));
    for (const auto& answers : order) {
        EXPECT_EQ(answers.size(), static_cast<std::size_t>(each));
        EXPECT_TRUE(std::is_sorted(answers.begin(), answers.end()));
    }
}

TEST_F(SqliteWriterTest, FullQueueIsBusyAtOnceAndTheWaitingWritesAreDone)
{
    Start(2);
    Block();
    auto first = Submit(Insert(1));
    auto second = Submit(Insert(2));
    auto third = Submit(Insert(3));
    ASSERT_EQ(third.wait_for(std::chrono::seconds(0)), std::future_status::ready);
    EXPECT_EQ(third.get()->reason, WriteFailure::Reason::QueueFull);
    Release();
    EXPECT_FALSE(first.get());
    EXPECT_FALSE(second.get());
    EXPECT_EQ(Committed(), "2");
}

TEST_F(SqliteWriterTest, CloseDoesWhatWaitsAndMovesTheLogIntoTheFile)
{
    Block();
    auto waiting = Submit(Insert(1));
    Release();
    writer->Close();
    EXPECT_FALSE(waiting.get());
    SqliteConnection alone(folder.Write("alone.db", ReadBytes(file)), SqliteConnection::Mode::ReadWrite,
                           std::chrono::milliseconds(0));
    EXPECT_EQ(alone.SingleValue("SELECT count(*) FROM t"), "1") << "the file no longer needs its log";
    EXPECT_EQ(Submit(Insert(2)).get()->reason, WriteFailure::Reason::Closing);
}

TEST_F(SqliteWriterTest, LockOfAnotherProgramIsWaitedForAndThenRefused)
{
    SqliteConnection other(file, SqliteConnection::Mode::ReadWrite, std::chrono::milliseconds(0));
    other.Execute("BEGIN EXCLUSIVE");
    EXPECT_EQ(Submit(Insert(1)).get()->reason, WriteFailure::Reason::StoreFailed);
    EXPECT_THAT(log.Text(), HasSubstr("The database is locked"));
    other.Execute("ROLLBACK");
    EXPECT_FALSE(Submit(Insert(1)).get());
}

} // namespace TLGateway

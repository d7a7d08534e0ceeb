#include "store/rows/WriteQueue.h"

#include <gtest/gtest.h>

#include <future>
#include <string>
#include <vector>

namespace TLGateway {

namespace {

WriteJob Job(const std::string& what, std::vector<WriteFailure::Reason>* failures = nullptr)
{
    return {what,
            {},
            [](IConnection&) {},
            [failures](const std::optional<WriteFailure>& failure) {
                if (failures != nullptr && failure) {
                    failures->push_back(failure->reason);
                }
            },
            std::nullopt};
}

std::string Names(const std::vector<WriteJob>& jobs)
{
    std::string names;
    for (const WriteJob& job : jobs) {
        names += job.what;
    }
    return names;
}

} // namespace

TEST(WriteQueueTest, TakesTheOldestJobsFirst)
{
    WriteQueue queue(10);
    for (const char* name : {"a", "b", "c"}) {
        queue.Push(Job(name));
    }
    EXPECT_EQ(Names(queue.Take(2)), "ab");
    EXPECT_EQ(Names(queue.TakeAll()), "c");
    EXPECT_TRUE(queue.TakeAll().empty());
}

TEST(WriteQueueTest, JobBeyondTheLimitHearsSoAtOnce)
{
    WriteQueue queue(1);
    std::vector<WriteFailure::Reason> failures;
    queue.Push(Job("a", &failures));
    queue.Push(Job("b", &failures));
    EXPECT_EQ(failures, std::vector<WriteFailure::Reason>{WriteFailure::Reason::QueueFull});
    EXPECT_EQ(Names(queue.Take(9)), "a");
}

TEST(WriteQueueTest, ClosedQueueGivesWhatWaitsAndTakesNothing)
{
    WriteQueue queue(10);
    std::vector<WriteFailure::Reason> failures;
    queue.Push(Job("a", &failures));
    EXPECT_FALSE(queue.ClosedSince());
    EXPECT_TRUE(queue.Close());
    EXPECT_FALSE(queue.Close());
    EXPECT_TRUE(queue.ClosedSince());
    queue.Push(Job("b", &failures));
    EXPECT_EQ(failures, std::vector<WriteFailure::Reason>{WriteFailure::Reason::Closing});
    EXPECT_EQ(Names(queue.Take(9)), "a");
    EXPECT_TRUE(queue.Take(9).empty());
}

TEST(WriteQueueTest, JobAndCloseWakeTheOneWhoWaits)
{
    WriteQueue queue(10);
    auto first = std::async(std::launch::async, [&] { return Names(queue.Take(9)); });
    queue.Push(Job("a"));
    EXPECT_EQ(first.get(), "a");
    auto second = std::async(std::launch::async, [&] { return queue.Take(9).empty(); });
    queue.Close();
    EXPECT_TRUE(second.get());
}

} // namespace TLGateway
